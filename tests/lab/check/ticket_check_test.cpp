#include "lab/check/ticket_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "device/logo_files.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

/// A check of lines within a receipt, with ";" as separator and an unknown register unless stated otherwise.
class TicketCheckTest : public ::testing::Test {
 protected:
  TicketCheckTest() { rules.settings.SeparatorChar = ';'; }

  std::string CommandOf(std::string_view line) { return Check(line, nullptr); }

  /// The findings about one line, each as "field severity code: text", with "-" for no field.
  std::string FindingsOf(std::string_view line) {
    TicketFindings findings;
    Check(line, &findings);
    std::string said;
    for (const TicketFinding& finding : findings) {
      // These concern the previous item.
      if (finding.code == "still-open" || finding.code == "no-receipt") continue;
      said += (said.empty() ? "" : "\n") + (finding.field < 0 ? "-" : std::to_string(finding.field)) +
              (finding.isError ? " error " : " warning ") + std::string(finding.code) + ": " + finding.text;
    }
    return said;
  }

  CheckRules rules;
  LogoFiles files;

 private:
  std::string Item() const {
    std::string item = "1;Pane;1,0;1000;1;;;1;;.";  // ends in more than a separator, which may be a blank
    std::replace(item.begin(), item.end(), ';', rules.settings.SeparatorChar);
    return item;
  }

  std::string Check(std::string_view line, TicketFindings* findings) {
    VirtualClock clock;
    TicketFindings ignored;
    TicketCheck check(rules, files, clock);
    check.BeginFile();
    check.Check(Item(), ignored);
    ignored.clear();
    return check.Check(line, findings == nullptr ? ignored : *findings);
  }
};

const std::string kBlankZone(40, ' ');

TEST_F(TicketCheckTest, ShowsTheCommandOfEveryRecordType) {
  const struct {
    const char* line;
    std::string command;
  } kCommands[] = {
      {"0;5;", "105105"},
      {"1;Latte intero;1000;159;3;;;1;;", "100301" + kBlankZone + "Latte intero    0001000100000015903"},
      {"2;1;5000;", "103601000005000"},
      {"3;Mele;199;3;;;1;;0,750;", "101701" + kBlankZone + "Mele            0000750100000019903"},
      {"4;0;", "102800"},
      {"5;2;1;TESTO;1;700;", "10720102TESTO           000000700"},
      {"6;2;1;1500;", "1025011500"},
      {"7;1;1;500;", "102401000000500"},
      {"8;1;-1;", "105501"},
      {"9;Pane;450;3;;1;;;2,0;", "101001" + kBlankZone + "Pane            0002000100000045003"},
      {"14;700;1;3;;0;", "10460103000000700"},
      {"15;1;700;", "104401000000700"},
      {"17;;7;Servito da Anna;1;", "10680107Servito da Anna            "},
      {"20;1;", "105001"},
      {"21;", "300101*"},
      {"22;", "300201*"},
      {"23;Grazie;1;", "1062010Grazie                          00"},
      {"24;Cassa 3;1;", "106601Cassa 3         "},
      {"25;;2;Cliente;1;", "10670102Cliente                    "},
      {"26;", "104701"},
      {"27;1;700;", "104801000000700"},
      {"28;1;Cassa 3;", "105801Cassa 3                    "},
      {"29;1;", "106301"},
      {"30;1;2;Ciao;", "1064012Ciao                       "},
      {"31;1;", "106501"},
      {"32;1;3;12;", "20030112*"},
      {"33;1;C:\\shop\\logo.bmp;", "BMP"},
      {"34;0;700;1;", "103101000000700"},
      {"35;1;700;1;", "104001000000700"},
      {"36;1;700;", "107501000000700"},
      {"37;1;", "107601"},
      {"38;1;9;TESTO;15;", "1077019TESTO           0015"},
      {"39;1;9;TESTO;15;", "1078019TESTO           0015"},
      {"40;1;", "104901"},
      {"41;1;", "114801"},
      {"42;1;250;", "10830100250"},
      {"43;1;0;100;250;3;TESTO;", "10840100100025003TESTO" + std::string(35, ' ')},
  };
  files.content["C:\\shop\\logo.bmp"] = LogoBitmap(100);
  for (const auto& [line, command] : kCommands) {
    EXPECT_EQ(CommandOf(line), command);
    EXPECT_EQ(FindingsOf(line), "") << line;
  }
}

TEST_F(TicketCheckTest, WarnsOfUnusualLogos) {
  files.content["C:\\logo.bmp"] = LogoBitmap(100);
  files.content["C:\\none.bmp"] = LogoBitmap(0);
  const struct {
    const char* line;
    const char* finding;
  } kLogos[] = {
      {"33;1;C:\\logo.bmp;", ""},
      {"33;99;C:\\logo.bmp;", ""},
      {"33;;C:\\logo.bmp;", "1 warning logo-number: '' is sent as '00': outside 1 to 99"},
      {"33;100;C:\\logo.bmp;", "1 warning logo-number: '100' is sent as '100': outside 1 to 99"},
      {"33;1;C:\\none.bmp;", "2 warning logo-empty: 'C:\\none.bmp' is a bitmap of height 0: nothing is sent"},
  };
  for (const auto& [line, finding] : kLogos) {
    EXPECT_EQ(CommandOf(line), "BMP") << line;
    EXPECT_EQ(FindingsOf(line), finding) << line;
  }
}

TEST_F(TicketCheckTest, SaysWhyALineIsInvalid) {
  const struct {
    const char* line;
    const char* finding;
  } kInvalid[] = {
      {"4", "- error no-separator: the separator, character 59 ';', does not occur in '4'"},
      {"4|5|",
       "- error no-separator: the separator, character 59 ';', does not occur in '4|5|'; did you mean "
       "character 124 '|'?"},
      {"4\x7F",
       "- error no-separator: the separator, character 59 ';', does not occur in '4 '; did you mean "
       "character 127?"},
      {"\xE8 \xE8", "- error no-separator: 'è è' contains no ASCII character, so only blanks are left of it"},
      {"01;5;", "0 error unknown-type: there is no record type '01'; write '1'"},
      {"1.;5;", "0 error unknown-type: there is no record type '1.'; write '1'"},
      {"8;1;2;", "2 error no-choice: '2' is not a choice; accepted: -1, 0"},
      {"33;1;C:\\none.bmp;",
       "2 error no-logo: 'C:\\none.bmp' is not, on this PC, a bitmap that the register can store as its "
       "logo"},
      {"4;;", "1 error empty: a value is missing; accepted: digits, 0 to 20; others are sent as 20"},
      {"4;", "1 error empty: a value is missing; accepted: digits, 0 to 20; others are sent as 20"},
      {"15;1;;",
       "2 error empty: a value is missing; accepted: digits, an amount in cents without any separator"},
      {"28;1;;", "2 error empty: a value is missing; accepted: any text; for an empty one write a blank"},
      {"1;Pane;;450;3;;;1;",
       "2 error empty: a value is missing; accepted: digits with one comma or point before the decimals, "
       "such as 1,000 or 0,75"},
      {"15;1;4,50;",
       "2 error not-digits: '4,50' holds other characters than digits; accepted: digits, an amount in cents "
       "without any separator"},
      {"4; -1 ;",
       "1 error not-digits: '-1' holds other characters than digits; accepted: digits, 0 to 20; others are "
       "sent as 20"},
      {"1;Pane;1 kg;450;3;;;1;",
       "2 error not-digits: '1 kg' holds other characters than digits; accepted: digits with one comma or "
       "point before the decimals, such as 1,000 or 0,75"},
      {"1;Pane;12;450;3;;;1;",
       "2 error quantity-short: '12' has neither comma nor point, so it counts thousandths and needs three "
       "digits; write 12,000 for 12"},
      {"1;Pane;1.000,5;450;3;;;1;",
       "2 error quantity-separators: '1.000,5' has more than one separator; accepted: digits with one comma "
       "or point before the decimals, such as 1,000 or 0,75"},
      {"1;Pane;0;450;3;;;1;",
       "2 error quantity-short: '0' has neither comma nor point, so it counts thousandths and needs three "
       "digits"},
      {"33;1;;", "2 error empty: a value is missing; accepted: the full path of a bitmap file"},
      {"6;2;1;0;", "3 error out-of-range: '0' is out of range; accepted: digits, 1 to 9999"},
      {"25;;6;Ciao;1;", "2 error out-of-range: '6' is out of range; accepted: a number, 1 to 5"},
      {"38;1;10;TESTO;15;", "2 error out-of-range: '10' is out of range; accepted: one digit, 0 to 9"},
  };
  for (const auto& [line, finding] : kInvalid) {
    EXPECT_EQ(FindingsOf(line), finding);
    EXPECT_EQ(CommandOf(line), "") << line;
  }
}

TEST_F(TicketCheckTest, SaysWhichTypesThereAre) {
  EXPECT_EQ(TicketCheck::KnownTypes().substr(0, 7), "0 to 9,");
  for (const std::string type : {"999", "0999", "x"}) {
    EXPECT_EQ(FindingsOf(type + ";5;"), "0 error unknown-type: there is no record type '" + type +
                                            "'; the types are " + TicketCheck::KnownTypes());
  }
}

TEST_F(TicketCheckTest, SaysWhatAValidLineLoses) {
  const struct {
    const char* line;
    const char* finding;
  } kValid[] = {
      {"4;25;", "1 warning clamped: '25' is sent as '20': outside 0 to 20"},
      {"1;Pane;1000;450;0;;;1;", "4 warning clamped: '0' is sent as '40': outside 1 to 40"},
      {"4;105;", "1 warning digits-lost: '105' is sent as '05': only the last 2 digits count"},
      {"4;130;",
       "1 warning digits-lost: '130' is sent as '20': only the last 2 digits count, and '30' is outside 0 to "
       "20"},
      {"32;1;10;99999;",
       "3 warning digits-lost: '99999' is sent as '1260': only the last 4 digits count, and '9999' is "
       "outside 0 to 1260"},
      {"1;Pane;0,000;450;3;;;1;", "2 warning quantity-zero: '0,000' is a quantity of 0"},
      {"1;Pane;,;450;3;;;1;", "2 warning quantity-zero: ',' is a quantity of 0"},
      {"1;Pane;000;450;3;;;1;", "2 warning quantity-zero: '000' is a quantity of 0"},
      {"24;Cassa\x7F"
       "3;1;",
       "1 warning character-127: 'Cassa 3' holds the character 127, which is sent as it is and cannot be "
       "printed; "
       "it is the separator of a new installation"},
      {"1;Pane;1,2345;450;3;;;1;",
       "2 warning decimals-lost: '1,2345' is sent as '0001234', in thousandths: only three decimals count"},
      {"15;1;1234567890;",
       "2 warning too-long: '1234567890' is sent as '1234567890', which moves all that follows it in the "
       "command; write at most 9 digits"},
      {"1;Pane;12345,0;450;3;;;1;",
       "2 warning too-long: '12345,0' is sent as '12345000', which moves all that follows it in the command; "
       "write at most 7 digits, four of them before the decimals"},
      {"43;1;03;100;250;3;TESTO;",
       "2 warning too-long: '03' is sent as '03', which moves all that follows it in the command; write at "
       "most 1 digit"},
      {"23;Grazie;uno;",
       "2 warning replaced: 'uno' is sent as '01'; accepted: digits, 0 to 20; others are sent as 20"},
      {"2;1;5000;7;CONTANTI;", "3 warning replaced: '7' is sent as '0'; accepted: one digit, 0 to 5"},
      {"5;x;1;;;700;", "1 warning replaced: 'x' is sent as '00'; accepted: digits, 0 to 10"},
      {"30;1;4;Ciao;", "2 warning replaced: '4' is sent as '3'; accepted: one digit, 0 to 3"},
      {"1;Pane casereccio al kg;1000;450;3;;;1;",
       "1 warning text-cut: only the first 20 characters of 'Pane casereccio al kg' are printed: "
       "'Pane casereccio al k'"},
      {"24;Cassa numero tre;1;x", "3 warning lost-text: 'x' has no separator behind it and is lost"},
      {"24;Caff\xE8;1;",
       "1 warning blanked: 'Caff\xC3\xA8' is printed as 'Caff ': 1 byte that is not printable ASCII becomes "
       "a "
       "blank"},
      {"24;Caff\xC3\xA8;1;",
       "1 warning blanked: 'Caff\xC3\xA8' is printed as 'Caff  ': 2 bytes that are not printable ASCII "
       "become "
       "blanks"},
      {"24;a\tb;1;",
       "1 warning blanked: 'a b' is printed as 'a b': 1 byte that is not printable ASCII becomes a blank"},
      {"4;1;;;;;;;;x;y", "- warning extra-text: 'x;y' stands behind the ninth field and is ignored"},
  };
  for (const auto& [line, finding] : kValid) {
    EXPECT_EQ(FindingsOf(line), finding);
    EXPECT_NE(CommandOf(line), "") << line;
  }
}

TEST_F(TicketCheckTest, FindsTextInFieldsThatAreNotPrinted) {
  const struct {
    const char* line;
    const char* found;
  } kUnused[] = {
      {"2;1;0;testo libero;", "3 warning unused-text: 'testo libero'"},  // F4 is empty
      {"5;0;1;x;1;100;", "3 warning unused-text: 'x'"},                  // F1 is 0
      {"5;2;1;x;0;100;", "3 warning unused-text: 'x'"},                  // F4 is not 1
      {"7;1;1;100;sconto;", "4 warning unused-text: 'sconto'"},          // F5 is not 1
      {"14;100;1;1;carta;0;", "4 warning unused-text: 'carta'"},
      {"1;1;1;;100;sconto;;;-1;", "5 warning unused-text: 'sconto'"},  // F6 is not 1
      {"1;Pane;1,0;450;3;reparto;;1;", "5 warning unused-text: 'reparto'"},
      {"4;1;ciao;", "2 warning unused-text: 'ciao'"},
      {"21;ciao;", "1 warning unused-text: 'ciao'"},
  };
  for (const auto& [line, found] : kUnused) {
    EXPECT_EQ(FindingsOf(line), std::string(found) + " is lost: the command has no place for this field");
  }
}

TEST_F(TicketCheckTest, KeepsQuietAboutFieldsThatOnlyChoose) {
  files.content["C:\\logo.bmp"] = LogoBitmap(100);
  for (const char* line : {"14;700;1;3;TESTO;x;", "34;x;700;1;", "35;x;700;1;", "33;1;C:\\logo.bmp;",
                           "8;1;-1;", "1;1;1;;100;TESTO;1;;-1;", "5;0;1;;1;700;", "2;1;700;3;"}) {
    EXPECT_EQ(FindingsOf(line), "") << line;
  }
  EXPECT_EQ(FindingsOf("8;1;2;x;"), "2 error no-choice: '2' is not a choice; accepted: -1, 0")
      << "which fields count is not known";
}

TEST_F(TicketCheckTest, KeepsQuietAboutWhatDoesNoHarm) {
  const char* const kHarmless[] = {
      "",
      "  \x1A",
      "\xEF\xBB\xBF"
      "4;5;",    // a byte-order mark
      "4;005;",  // leading zeros
      "4; 5 ;",
      "21;;;;;;;;;",
      "21;;;;;;;;; ; ;",                // only separators after the ninth field
      "24;Cassa numero tre     ;1;",    // only blanks are cut
      "24;Cassa numero tre   \xE8;1;",  // characters that become blanks are cut as well
      "23;Grazie;;",                    // left out: the substitute is intended
      "5;0;1;;;;",
      "5;000;1;;;0;",
      "1;Pane;1,2340;450;3;;;1;",
      "4;5;\t",
  };
  for (const char* line : kHarmless) EXPECT_EQ(FindingsOf(line), "") << line;
}

TEST_F(TicketCheckTest, ReportsEveryFindingOfALine) {
  EXPECT_EQ(
      FindingsOf("15;x;y"),
      "1 error not-digits: 'x' holds other characters than digits; accepted: digits, 0 to 20; others are "
      "sent as 20\n"
      "2 error empty: a value is missing; accepted: digits, an amount in cents without any separator\n"
      "2 warning lost-text: 'y' has no separator behind it and is lost");
}

TEST_F(TicketCheckTest, HasForEveryRecordEitherACommandOrAnError) {
  const std::vector<std::string> values = {"",   "1",       "0",        "25",         "x",   "1,5",
                                           "12", "1.000,5", "Caff\xE8", "9999999999", "   ", "-1"};
  std::mt19937 random(7);
  for (int i = 0; i < 2000; ++i) {
    std::string line = std::to_string(random() % 46) + ";";
    for (auto fields = random() % 10; fields > 0; --fields) line += values[random() % values.size()] + ";";
    const bool isValid = !CommandOf(line).empty();
    const bool hasError = FindingsOf(line).find(" error ") != std::string::npos;
    ASSERT_NE(isValid, hasError) << line;
  }
}

TEST_F(TicketCheckTest, GoesByTheRegistersModel) {
  const char* kLine = "24;Cassa numero tre bis;1;";
  EXPECT_EQ(CommandOf(kLine), "106601Cassa numero tre");
  rules.identity.DeviceModel = "TOVEST ETH";
  EXPECT_EQ(CommandOf(kLine), "108101Cassa numero tre bis       ");
  EXPECT_EQ(FindingsOf(kLine), "");
}

TEST_F(TicketCheckTest, GoesByTheSettings) {
  rules.settings.SeparatorChar = 127;
  rules.settings.SingleQuantity = true;
  EXPECT_EQ(CommandOf("1\x7FPane\x7F"
                      "1,0\x7F"
                      "450\x7F"
                      "3\x7F\x7F\x7F"
                      "1\x7F"),
            "100401" + kBlankZone + "Pane            0001000100000045003");
}

TEST_F(TicketCheckTest, DoesNotMissTheClosingBlankOfABlankSeparator) {
  rules.settings.SeparatorChar = ' ';
  EXPECT_EQ(CommandOf("4 5 ."), "102805");
  EXPECT_EQ(FindingsOf("4 5 ."), "");
}

TEST_F(TicketCheckTest, ShowsLongTextsCut) {
  EXPECT_EQ(FindingsOf("4;" + std::string(50, 'x') + ";"),
            "1 error not-digits: '" + std::string(40, 'x') +
                "...' holds other characters than digits; accepted: digits, 0 to 20; others are sent as 20");
}

TEST(QuotedBytes, ShowsWhatATerminalCanShow) {
  EXPECT_EQ(QuotedBytes("Caff\xC3\xA8"), "'Caff\xC3\xA8'");
  EXPECT_EQ(QuotedBytes("Caff\xE8"), "'Caff\xC3\xA8'");
  EXPECT_EQ(QuotedBytes("a\x1B[31mb\x7F"), "'a [31mb '");
  EXPECT_EQ(QuotedBytes("a\xC2\x9B"
                        "31m"),
            "'a 31m'");
  EXPECT_EQ(QuotedBytes("a\x9B"
                        "31m"),
            "'a\xE2\x80\xBA"
            "31m'");
  EXPECT_EQ(QuotedBytes(std::string_view("a\0b", 3)), "'a b'");
}

TEST(QuotedBytes, CutsALongTextBetweenCharacters) {
  std::string text;
  std::string shown;
  for (int i = 0; i < 100; ++i) text += "\xE2\x82\xAC";
  for (int i = 0; i < 40; ++i) shown += "\xE2\x82\xAC";
  EXPECT_EQ(QuotedBytes(text), "'" + shown + "...'");
}

TEST_F(TicketCheckTest, KnowsTheFieldsOfTheLatestLineAndWhetherItBeginsATicket) {
  rules.settings.SeparatorChar = ';';
  rules.settings.FileParser = true;
  VirtualClock clock;
  TicketFindings ignored;
  TicketCheck check(rules, files, clock);
  check.BeginFile();
  for (const char* line : {"1;Pane;1,0;1000;1;;;1;;", "2;1;0;"}) {
    check.Check(line, ignored);
    EXPECT_FALSE(check.BeganTicket()) << line;
  }
  check.Check("1;Latte;1,0;1000;1;;;1;;", ignored);
  EXPECT_TRUE(check.BeganTicket());
  EXPECT_EQ(check.Fields()[1], "Latte");
  check.Check("  ", ignored);
  EXPECT_FALSE(check.BeganTicket());
  EXPECT_EQ(check.Fields().Count(), 0u);
}

}  // namespace
}  // namespace orvenza::test
