#include "tickets/record_types.h"

#include <string>
#include <string_view>

#include "tickets/translation_world.h"

namespace orvenza::test {
namespace {

/// The types with a role, separated by blanks.
std::string TypesWith(bool RecordRoles::*role) {
  std::string types;
  for (const RecordType& row : RecordTypes()) {
    if (!HasRole(row.type, role)) continue;
    types.append(types.empty() ? "" : " ").append(row.type);
  }
  return types;
}

TEST(RecordRoles, AreThoseOfTheTypes) {
  EXPECT_EQ(TypesWith(&RecordRoles::closesTicket), "2 4 5 15");
  EXPECT_EQ(TypesWith(&RecordRoles::followsClosing), "14");
  EXPECT_EQ(TypesWith(&RecordRoles::endsReceipt), "2 4 5 14 15 31");
  EXPECT_EQ(TypesWith(&RecordRoles::completes), "2 5 14 15 31 34 35");
  EXPECT_EQ(TypesWith(&RecordRoles::reports), "21 22 32");
}

TEST(RecordRoles, AreNoneOfOtherTexts) {
  for (const char* type : {"", "02", " 2", "2 ", "x", "999"}) {
    EXPECT_FALSE(HasRole(type, &RecordRoles::closesTicket)) << type;
  }
}

TEST_F(TranslationTest, Type0) {
  EXPECT_EQ(Translate("0;5;"), "105105");
  EXPECT_EQ(Translate("0;;"), "");
}

TEST_F(TranslationTest, AnEmptyTypeIsType0) { EXPECT_EQ(Translate(";5;"), "105105"); }

TEST_F(TranslationTest, UnknownTypesAreInvalid) {
  for (const char* type : {"999", "-1", "x", "A"}) {
    EXPECT_EQ(Translate(std::string(type) + ";1;1;1;1;1;1;1;1;"), "") << type;
    EXPECT_EQ(FindRecordType(type), nullptr) << type;
  }
}

TEST_F(TranslationTest, TypesAreComparedExactly) {
  for (const char* type : {"00", "04", "4 ", "4.", "+4", "021", "21 "}) {
    EXPECT_EQ(Translate(std::string(type) + ";5;"), "") << type;
  }
  EXPECT_EQ(Translate(";4;5;"), "105104");
  EXPECT_EQ(Translate(" 4;5;"), "102805") << "blanks around the line go before it is cut";
  EXPECT_EQ(Translate("4; 5 ;"), "102805");
}

TEST_F(TranslationTest, ALineWithoutClosingSeparatorLosesItsValue) { EXPECT_EQ(Translate("4;5"), ""); }

TEST_F(TranslationTest, ALineWithoutAnySeparatorIsInvalid) {
  EXPECT_EQ(Translate("21"), "");
  EXPECT_EQ(Translate(""), "");
}

TEST_F(TranslationTest, Type2WithoutText) {
  EXPECT_EQ(Translate("2;1;1250;"), "103601000001250");
  EXPECT_EQ(Translate("2;1;0;"), "103601000000000");
  EXPECT_EQ(Translate("2;x;1250;"), "");
  EXPECT_EQ(Translate("2;1;12,50;"), "");
}

TEST_F(TranslationTest, Type2WithText) {
  EXPECT_EQ(Translate("2;1;1250;5;CARTA;"), "1073015CARTA           000001250");
  EXPECT_EQ(Translate("2;1;1250;0;  BUONO PASTO  AZIENDA;"), "1073010  BUONO PASTO  A000001250");
}

TEST_F(TranslationTest, Type2WithTextAndAWrongDigitSendsDigit0) {
  EXPECT_EQ(Translate("2;1;1250;6;CARTA;"), "1073010CARTA           000001250");
  EXPECT_EQ(Translate("2;1;1250;;CARTA;"), "1073010CARTA           000001250");
}

TEST_F(TranslationTest, Type2WithATextOfBlanksSendsBlanks) {
  EXPECT_EQ(Translate("2;1;1250;1; ;"), "1073011" + Blanks(16) + "000001250");
}

TEST_F(TranslationTest, Type4) {
  EXPECT_EQ(Translate("4;5;"), "102805");
  EXPECT_EQ(Translate("4;;"), "");
}

TEST_F(TranslationTest, Type5WithoutClass) {
  EXPECT_EQ(Translate("5;0;3;;;700;"), "10450300000000700");
  EXPECT_EQ(Translate("5;;3;;1;700;"), "10450300000000700");
  EXPECT_EQ(Translate("5;abc;3;;;700;"), "10450300000000700");
}

TEST_F(TranslationTest, Type5WithoutText) {
  EXPECT_EQ(Translate("5;2;3;;;700;"), "10450302000000700");
  EXPECT_EQ(Translate("5;10;3;TESTO;0;700;"), "10450310000000700");
  EXPECT_EQ(Translate("5;11;3;;;700;"), "");
  EXPECT_EQ(Translate("5;0.5;3;;;700;"), "");
}

TEST_F(TranslationTest, Type5WithText) {
  EXPECT_EQ(Translate("5;2;3;RESO MERCE;1;700;"), "10720302RESO MERCE      000000700");
  EXPECT_EQ(Translate("5;2;3;;1;700;"), "");
  EXPECT_EQ(Translate("5;11;3;RESO MERCE;1;700;"), "");
}

TEST_F(TranslationTest, Type5SendsAWrongAmountAsZero) {
  EXPECT_EQ(Translate("5;0;3;;;x;"), "10450300000000000");
  EXPECT_EQ(Translate("5;2;3;;;;"), "10450302000000000");
  EXPECT_EQ(Translate("5;2;3;RESO MERCE;1;-1;"), "10720302RESO MERCE      000000000");
}

TEST_F(TranslationTest, Type6) {
  EXPECT_EQ(Translate("6;2;1;1500;"), "1025011500");
  EXPECT_EQ(Translate("6;3;1;1500;"), "1026011500");
  EXPECT_EQ(Translate("6;2;1;0;"), "");
}

TEST_F(TranslationTest, Type6WithoutChoiceTakesTheFirst) { EXPECT_EQ(Translate("6;;1;1500;"), "1025011500"); }

TEST_F(TranslationTest, Type6WithAnotherChoiceIsInvalid) {
  for (const char* choice : {"1", "4", "02", " 2", "x"}) {
    EXPECT_EQ(Translate(std::string("6;") + choice + ";1;1500;"), "") << choice;
  }
}

TEST_F(TranslationTest, Type7WithoutText) {
  EXPECT_EQ(Translate("7;1;2;500;"), "102402000000500");
  EXPECT_EQ(Translate("7;1;2;500;SCONTO;0;"), "102402000000500");
}

TEST_F(TranslationTest, Type7WithText) {
  EXPECT_EQ(Translate("7;1;2;500;SCONTO;1;"), "107002SCONTO          000000500");
  EXPECT_EQ(Translate("7;1;2;500;;1;"), "");
}

TEST_F(TranslationTest, Type7WithoutChoiceTakesTheFirst) {
  EXPECT_EQ(Translate("7;;2;500;"), "102402000000500");
  EXPECT_EQ(Translate("7;;2;500;SCONTO;1;"), "107002SCONTO          000000500");
}

TEST_F(TranslationTest, Type7WithAnotherChoiceIsInvalid) {
  EXPECT_EQ(Translate("7;2;2;500;"), "");
  EXPECT_EQ(Translate("7;3;2;500;SCONTO;1;"), "");
}

TEST_F(TranslationTest, Type8) {
  EXPECT_EQ(Translate("8;1;-1;"), "105501");
  EXPECT_EQ(Translate("8;1;0;"), "105601");
  EXPECT_EQ(Translate("8;1;1;"), "");
  EXPECT_EQ(Translate("8;1; -1;"), "");
}

TEST_F(TranslationTest, Type8WithoutChoiceTakesTheFirst) { EXPECT_EQ(Translate("8;1;;"), "105501"); }

TEST_F(TranslationTest, Type14WithoutText) {
  EXPECT_EQ(Translate("14;700;1;3;;0;"), "10460103000000700");
  EXPECT_EQ(Translate("14;700;1;0;TESTO;0;"), "10460110000000700");
  EXPECT_EQ(Translate("14;;1;3;;0;"), "");
}

TEST_F(TranslationTest, Type14WithText) {
  EXPECT_EQ(Translate("14;700;1;3;RESO;1;"), "10710103RESO            000000700");
  EXPECT_EQ(Translate("14;700;1;3;RESO;;"), "10710103RESO            000000700");
  EXPECT_EQ(Translate("14;700;1;3;RESO;00;"), "10710103RESO            000000700");
  EXPECT_EQ(Translate("14;700;1;3;;1;"), "");
}

TEST_F(TranslationTest, Type15) {
  EXPECT_EQ(Translate("15;1;700;"), "104401000000700");
  EXPECT_EQ(Translate("15;1;;"), "");
}

TEST_F(TranslationTest, Type20) { EXPECT_EQ(Translate("20;1;"), "105001"); }

TEST_F(TranslationTest, Type21TakesNoField) {
  EXPECT_EQ(Translate("21;"), "300101*");
  EXPECT_EQ(Translate("21;;;;;;;;;"), "300101*");
}

TEST_F(TranslationTest, Type22TakesNoField) { EXPECT_EQ(Translate("22;;;;;;;;;"), "300201*"); }

TEST_F(TranslationTest, Type23) {
  EXPECT_EQ(Translate("23;Grazie e arrivederci;2;"), "1062020Grazie e arrivederci            00");
  EXPECT_EQ(Translate("23;123456789012345678901234567890123;2;"),
            "10620201234567890123456789012345678901200");
  EXPECT_EQ(Translate("23;;2;"), "");
}

TEST_F(TranslationTest, Type23WithoutNumberSends01) {
  EXPECT_EQ(Translate("23;Grazie;;"), "1062010Grazie                          00");
  EXPECT_EQ(Translate("23;Grazie;x;"), "1062010Grazie                          00");
}

TEST_F(TranslationTest, Type25) {
  EXPECT_EQ(Translate("25;;3;Cliente abituale;2;"), "10670203Cliente abituale           ");
  EXPECT_EQ(Translate("25;;3;Cliente abituale;;"), "10670103Cliente abituale           ");
  EXPECT_EQ(Translate("25;;3;;2;"), "");
}

TEST_F(TranslationTest, Type25TakesF2From1To5) {
  EXPECT_EQ(Translate("25;;1;A;2;").substr(0, 8), "10670201");
  EXPECT_EQ(Translate("25;;5;A;2;").substr(0, 8), "10670205");
  EXPECT_EQ(Translate("25;;005;A;2;").substr(0, 8), "10670205");
  for (const char* f2 : {"0", "6", "15", "105", "", "x", "-1", "1.5"}) {
    EXPECT_EQ(Translate(std::string("25;;") + f2 + ";A;2;"), "") << f2;
  }
}

TEST_F(TranslationTest, Type26IsItsCodeAlone) { EXPECT_EQ(Translate("26;"), "104701"); }

TEST_F(TranslationTest, Type27) { EXPECT_EQ(Translate("27;1;700;"), "104801000000700"); }

TEST_F(TranslationTest, Type28) {
  EXPECT_EQ(Translate("28;1;Cassa 3;"), "105801Cassa 3                    ");
  EXPECT_EQ(Translate("28;1;;"), "");
}

TEST_F(TranslationTest, Type29) { EXPECT_EQ(Translate("29;1;"), "106301"); }

TEST_F(TranslationTest, Type30) {
  EXPECT_EQ(Translate("30;1;2;Testo;"), "1064012Testo                      ");
  EXPECT_EQ(Translate("30;1;2;;"), "");
}

TEST_F(TranslationTest, Type30SendsDigitsAbove3As3) {
  EXPECT_EQ(Translate("30;1;0;Testo;").substr(0, 8), "1064010T");
  EXPECT_EQ(Translate("30;1;3;Testo;").substr(0, 8), "1064013T");
  EXPECT_EQ(Translate("30;1;03;Testo;").substr(0, 9), "10640103T");
  EXPECT_EQ(Translate("30;1;4;Testo;").substr(0, 8), "1064013T");
  EXPECT_EQ(Translate("30;1;5;Testo;").substr(0, 8), "1064013T");
  EXPECT_EQ(Translate("30;1;6;Testo;"), "");
  EXPECT_EQ(Translate("30;1;;Testo;"), "");
}

TEST_F(TranslationTest, Type31) { EXPECT_EQ(Translate("31;1;"), "106501"); }

TEST_F(TranslationTest, Type32WithoutParameter) {
  EXPECT_EQ(Translate("32;1;1;"), "200101*");
  EXPECT_EQ(Translate("32;1;5;"), "200501*");
  EXPECT_EQ(Translate("32;1;7;x;"), "200701*");
  EXPECT_EQ(Translate("32;1;11;"), "201101*");
}

TEST_F(TranslationTest, Type32WithAParameterUpTo10) {
  EXPECT_EQ(Translate("32;1;2;11;"), "20020110*");
  EXPECT_EQ(Translate("32;1;8;3;"), "20080103*");
  EXPECT_EQ(Translate("32;1;8;0;"), "20080100*");
}

TEST_F(TranslationTest, Type32WithAParameterUpTo40) {
  EXPECT_EQ(Translate("32;1;3;41;"), "20030140*");
  EXPECT_EQ(Translate("32;1;9;3;"), "20090103*");
  EXPECT_EQ(Translate("32;1;9;0;"), "20090100*");
}

TEST_F(TranslationTest, Type32WithAParameterUpTo1260) {
  EXPECT_EQ(Translate("32;1;4;1261;"), "2004011260*");
  EXPECT_EQ(Translate("32;1;10;3;"), "2010010003*");
}

TEST_F(TranslationTest, Type32WithAParameterUpTo20) {
  EXPECT_EQ(Translate("32;1;6;21;"), "20060120*");
  EXPECT_EQ(Translate("32;1;12;3;"), "20120103*");
}

TEST_F(TranslationTest, Type32WithoutAWantedParameterIsInvalid) {
  for (const char* choice : {"2", "3", "4", "6", "8", "9", "10", "12"}) {
    EXPECT_EQ(Translate(std::string("32;1;") + choice + ";;"), "") << choice;
  }
}

TEST_F(TranslationTest, Type32WithoutChoiceTakesTheFirst) { EXPECT_EQ(Translate("32;1;;"), "200101*"); }

TEST_F(TranslationTest, Type32WithAnotherChoiceIsInvalid) {
  for (const char* choice : {"13", "0", "01", "x", " 1"}) {
    EXPECT_EQ(Translate(std::string("32;1;") + choice + ";1;"), "") << choice;
  }
}

TEST_F(TranslationTest, LongRunningCommandsNeedTheirNumberToo) { EXPECT_EQ(Translate("32;;1;"), ""); }

TEST_F(TranslationTest, Type34) {
  EXPECT_EQ(Translate("34;0;700;2;"), "103102000000700");
  EXPECT_EQ(Translate("34;1;700;2;"), "103202000000700");
  EXPECT_EQ(Translate("34;;700;2;"), "103202000000700");
  EXPECT_EQ(Translate("34;0;700;;"), "103101000000700");
  EXPECT_EQ(Translate("34;0;;2;"), "");
}

TEST_F(TranslationTest, Type35) {
  EXPECT_EQ(Translate("35;0;700;2;"), "103902000000700");
  EXPECT_EQ(Translate("35;1;700;2;"), "104002000000700");
  EXPECT_EQ(Translate("35;;700;2;"), "104002000000700");
  EXPECT_EQ(Translate("35;0;700;x;"), "103901000000700");
  EXPECT_EQ(Translate("35;0;;2;"), "");
}

TEST_F(TranslationTest, Type36) { EXPECT_EQ(Translate("36;1;700;"), "107501000000700"); }

TEST_F(TranslationTest, Type37) { EXPECT_EQ(Translate("37;1;"), "107601"); }

TEST_F(TranslationTest, Type38) {
  EXPECT_EQ(Translate("38;1;9;Sconto socio;15;"), "1077019Sconto socio    0015");
  EXPECT_EQ(Translate("38;1;10;Sconto socio;15;"), "");
  EXPECT_EQ(Translate("38;1;9;;15;"), "");
  EXPECT_EQ(Translate("38;1;9;Sconto socio;0;"), "");
}

TEST_F(TranslationTest, Type39) {
  EXPECT_EQ(Translate("39;1;0;Sconto socio;15;"), "1078010Sconto socio    0015");
  EXPECT_EQ(Translate("39;1;0;Sconto socio;0;"), "");
}

TEST_F(TranslationTest, Type40) { EXPECT_EQ(Translate("40;1;"), "104901"); }

TEST_F(TranslationTest, Type41) { EXPECT_EQ(Translate("41;1;"), "114801"); }

TEST_F(TranslationTest, Type42) {
  EXPECT_EQ(Translate("42;1;9999;"), "10830109999");
  EXPECT_EQ(Translate("42;1;10000;"), "");
  EXPECT_EQ(Translate("42;1;0;"), "");
}

TEST_F(TranslationTest, Type43) {
  EXPECT_EQ(Translate("43;1;3;200;9999;12;Tessera punti;"), "10840130200999912Tessera punti" + Blanks(27));
  EXPECT_EQ(Translate("43;1;4;200;9999;12;Tessera punti;"), "");
  EXPECT_EQ(Translate("43;1;3;201;9999;12;Tessera punti;"), "");
  EXPECT_EQ(Translate("43;1;3;200;0;12;Tessera punti;"), "");
  EXPECT_EQ(Translate("43;1;3;200;9999;;Tessera punti;"), "");
  EXPECT_EQ(Translate("43;1;3;200;9999;12;;"), "");
}

TEST_F(TranslationTest, Type43SendsAClassOutOfRangeAs40) {
  EXPECT_EQ(Translate("43;1;0;0;1;0;Punti;"), "10840100000000140Punti" + Blanks(35));
}

TEST_F(TranslationTest, NumbersAbove20AreSentAs20) {
  for (const char* line : {"0;21;", "4;21;", "20;21;", "29;21;", "31;21;", "37;21;", "40;21;", "41;21;"}) {
    EXPECT_EQ(Translate(line).substr(4), "20") << line;
  }
}

TEST_F(TranslationTest, AnAmountBeyondNineDigitsIsSentWhole) {
  EXPECT_EQ(Translate("27;1;12345678901;"), "10480112345678901");
}

}  // namespace
}  // namespace orvenza::test
