#include <string>
#include <utility>

#include "tickets/translation_world.h"

namespace orvenza::test {
namespace {

// One line of each record type that differs between models.
constexpr const char* kType17 = "17;;7;A;2;";
constexpr const char* kType24 = "24;A;2;";
constexpr const char* kType30 = "30;1;2;A;";

std::string Wide17(std::size_t width) { return "10820207A" + Blanks(width - 1); }
const std::string kWide24 = "108102A" + Blanks(26);
const std::string kPlain17 = "10680207A" + Blanks(26);
const std::string kPlain24 = "106602A" + Blanks(15);
std::string Type30(std::size_t width) { return "1064012A" + Blanks(width - 1); }

class ModelTest : public TranslationTest {
 protected:
  void ExpectPlain() {
    EXPECT_EQ(Translate(kType17), kPlain17);
    EXPECT_EQ(Translate(kType24), kPlain24);
  }
  void ExpectWide(std::size_t width) {
    EXPECT_EQ(Translate(kType17), Wide17(width));
    EXPECT_EQ(Translate(kType24), kWide24);
  }
};

TEST_F(ModelTest, AnUnknownModelIsPlain) {
  ExpectPlain();
  EXPECT_EQ(Translate(kType30), Type30(27));
}

TEST_F(ModelTest, AnyOtherModelIsPlainWhateverItsRelease) {
  for (const char* label : {"TOVEST 8", "tovest eth", "315 KV", "MELDANO", " 40 ZAFRON", ""}) {
    Register(label, "99.99.99");
    ExpectPlain();
    EXPECT_EQ(Translate(kType30), Type30(27));
  }
}

TEST_F(ModelTest, Tovest8IsWideWhateverItsRelease) {
  Register("  TOVEST 8", "");
  ExpectWide(37);
  EXPECT_EQ(Translate(kType30), Type30(37));
}

TEST_F(ModelTest, TovestEthIsWideWhateverItsRelease) {
  Register("TOVEST ETH", "-9.00");
  ExpectWide(37);
  EXPECT_EQ(Translate(kType30), Type30(37));
}

TEST_F(ModelTest, Model315IsWideFromRelease100) {
  Register("  315 KV  ", "1.00");
  ExpectWide(37);
  Register("  315 KV  ", "0.99");
  ExpectPlain();
}

TEST_F(ModelTest, Model315ReadsItsReleaseWithoutTheBlanksAroundIt) {
  Register("  315 KV  ", "  1.00    ");
  ExpectWide(37);
  Register("  315 KV  ", "0.99      ");
  ExpectPlain();
}

TEST_F(ModelTest, Model315ReadsOnlyTheLastSevenCharactersOfItsRelease) {
  Register("  315 KV  ", "9.9.00.0.5");
  ExpectPlain();
  Register("  315 KV  ", "0.9.00.1.0.0");
  ExpectWide(37);
}

TEST_F(ModelTest, Model315GoesByItsReleaseTextAlone) {
  identity = {"  315 KV  ", "0.50", 500};
  ExpectPlain();
  identity = {"  315 KV  ", "1.50", 0};
  ExpectWide(37);
}

TEST_F(ModelTest, Model315HasWideType30FromAnyRelease) {
  Register("  315 KV  ", "0.50");
  EXPECT_EQ(Translate(kType30), Type30(37));
  Register("  315 KV  ", "1.50");
  EXPECT_EQ(Translate(kType30), Type30(37));
}

TEST_F(ModelTest, QuarnisIsWideFromRelease20200) {
  Register("QUARNIS  A", "   2.02.00");
  ExpectWide(37);
  Register("QUARNIS  A", "   2.01.99");
  ExpectPlain();
}

TEST_F(ModelTest, QuarnisGoesByItsReleaseNumber) {
  identity = {"QUARNIS  A", "", 20200};
  ExpectWide(37);
  identity = {"QUARNIS  A", "9.99.99", 20199};
  ExpectPlain();
}

TEST_F(ModelTest, QuarnisHasWideType30FromAnyRelease) {
  Register("QUARNIS  A", "   2.01.99");
  EXPECT_EQ(Translate(kType30), Type30(37));
  Register("QUARNIS  A", "   2.02.00");
  EXPECT_EQ(Translate(kType30), Type30(37));
}

TEST_F(ModelTest, MeldanoIsWideFromRelease20400) {
  Register("  MELDANO ", "   2.04.00");
  ExpectWide(32);
  Register("  MELDANO ", "   2.03.99");
  ExpectPlain();
}

TEST_F(ModelTest, MeldanoHasItsOwnType30WidthFromAnyRelease) {
  Register("  MELDANO ", "   2.03.99");
  EXPECT_EQ(Translate(kType30), Type30(32));
}

TEST_F(ModelTest, LongTextsAreCutToTheModelsWidth) {
  const std::string text = "1234567890123456789012345678901234567890";
  EXPECT_EQ(Translate("17;;7;" + text + ";2;"), "10680207" + text.substr(0, 27));
  EXPECT_EQ(Translate("24;" + text + ";2;"), "106602" + text.substr(0, 16));
  Register("  MELDANO ", "   2.04.00");
  EXPECT_EQ(Translate("17;;7;" + text + ";2;"), "10820207" + text.substr(0, 32));
  EXPECT_EQ(Translate("24;" + text + ";2;"), "108102" + text.substr(0, 27));
  EXPECT_EQ(Translate("30;1;2;" + text + ";"), "1064012" + text.substr(0, 32));
}

TEST_F(ModelTest, OtherRecordsWithTextAreTheSameOnEveryModel) {
  const std::string text = "1234567890123456789012345678901234567890123456789";
  const std::pair<std::string, std::string> rows[] = {
      {"1;" + text + ";1000;150;3;;;2;", "100302" + Blanks(40) + "123456789012345600010001000000150037890"},
      {"1;1;2;;500;" + text + ";1;;-1;", "1069021234567890123456000000500"},
      {"2;1;1250;5;" + text + ";", "10730151234567890123456000001250"},
      {"3;" + text + ";150;3;;;2;;1000;", "101502" + Blanks(40) + "123456789012345600010001000000150037890"},
      {"5;2;3;" + text + ";1;700;", "107203021234567890123456000000700"},
      {"7;1;2;500;" + text + ";1;", "1070021234567890123456000000500"},
      {"9;" + text + ";150;3;;2;;;1000;", "100902" + Blanks(40) + "123456789012345600010001000000150037890"},
      {"14;700;1;3;" + text + ";1;", "107101031234567890123456000000700"},
      {"23;" + text + ";2;", "10620201234567890123456789012345678901200"},
      {"25;;3;" + text + ";2;", "10670203" + text.substr(0, 27)},
      {"28;1;" + text + ";", "105801" + text.substr(0, 27)},
      {"38;1;9;" + text + ";15;", "107701912345678901234560015"},
      {"39;1;9;" + text + ";15;", "107801912345678901234560015"},
      {"43;1;3;200;9999;12;" + text + ";", "10840130200999912" + text.substr(0, 40)},
  };
  for (const char* label :
       {"          ", "  TOVEST 8", "TOVEST ETH", "  315 KV  ", "QUARNIS  A", "  MELDANO "}) {
    Register(label, "   9.99.99");
    for (const auto& [line, command] : rows) EXPECT_EQ(Translate(line), command) << label << line;
  }
}

TEST_F(ModelTest, Type17TakesF2From1To30OnEveryModel) {
  for (const char* label : {"          ", "TOVEST ETH"}) {
    Register(label, "");
    EXPECT_EQ(Translate("17;;1;A;2;").substr(4, 4), "0201");
    EXPECT_EQ(Translate("17;;30;A;2;").substr(4, 4), "0230");
    EXPECT_EQ(Translate("17;; 05 ;A;2;").substr(4, 4), "0205");
    for (const char* f2 : {"0", "31", "130", "", "x", "-1", "1,5"}) {
      EXPECT_EQ(Translate(std::string("17;;") + f2 + ";A;2;"), "") << label << f2;
    }
  }
}

TEST_F(ModelTest, Types17And24SendAWrongNumberAs01) {
  EXPECT_EQ(Translate("17;;7;A;;"), "10680107A" + Blanks(26));
  EXPECT_EQ(Translate("24;A;x;"), "106601A" + Blanks(15));
}

TEST_F(ModelTest, Types17And24NeedTheirText) {
  EXPECT_EQ(Translate("17;;7;;2;"), "");
  EXPECT_EQ(Translate("24;;2;"), "");
}

TEST(ReleaseNumber, ReadsTheLastSevenCharacters) {
  EXPECT_EQ(ReleaseNumber("2.02.00"), 20200);
  EXPECT_EQ(ReleaseNumber("   2.02.00"), 20200);
  EXPECT_EQ(ReleaseNumber("9992.02.00"), 20200);
  EXPECT_EQ(ReleaseNumber("1.5"), 15);
  EXPECT_EQ(ReleaseNumber("2.02.00   "), 200);
}

TEST(ReleaseNumber, IsZeroForATextThatStartsWithNoNumber) {
  EXPECT_EQ(ReleaseNumber(""), 0);
  EXPECT_EQ(ReleaseNumber("V2.02.00"), 20200);
  EXPECT_EQ(ReleaseNumber("REL 2.0"), 0);
}

TEST(RegisterIdentity, IsTenBlanksUntilLearned) {
  const RegisterIdentity identity;
  EXPECT_EQ(identity.DeviceModel, "          ");
  EXPECT_EQ(identity.DeviceRelease, "");
  EXPECT_EQ(identity.DeviceReleaseNumber, 0);
}

}  // namespace
}  // namespace orvenza::test
