#include "tickets/text_mask.h"

#include <gtest/gtest.h>

#include <string>

namespace orvenza::test {
namespace {

TEST(TextMask, KeepsTheShapeOfAText) {
  EXPECT_EQ(MaskAll("Pane al kg, 12"), "Xxxx xx xx, 99");
  EXPECT_EQ(MaskAll("Caff\xE8\t\x7f"), "Xxxxx\t\x7f");
}

TEST(TextMask, MasksTheTextsOfTheseRecords) {
  const struct {
    const char* line;
    const char* masked;
  } kCases[] = {
      {"1;Pane 2 kg;1000;450;3;;;1;;", "1;Xxxx 9 xx;1000;450;3;;;1;;"},
      {"1;1;2;;50;ANNA 3;1;;-1;", "1;1;2;;50;XXXX 9;1;;-1;"},
      {"2;1;5000;2;CARTA 4711;", "2;1;5000;2;XXXXX 9999;"},
      {"3;Mele;450;3;;;1;;0,750;", "3;Xxxx;450;3;;;1;;0,750;"},
      {"4;5;", "4;5;"},
      {"9;Mele;450;3;;1;;;1.5;", "9;Xxxx;450;3;;1;;;1.5;"},
      {"14;700;1;3;ANNA;1;", "14;700;1;3;XXXX;1;"},
      {"17;;7;Servito da Anna;1;", "17;;7;Xxxxxxx xx Xxxx;1;"},
      {"23;Grazie;1;", "23;Xxxxxx;1;"},
      {";5;", ";5;"},
      {"33;1;C:\\shop\\logo.bmp;", "33;1;C:\\shop\\logo.bmp;"},
      {"43;1;0;100;250;3;333 1234567;", "43;1;0;100;250;3;999 9999999;"},
  };
  for (const auto& [line, masked] : kCases) EXPECT_EQ(MaskTexts(line, ';'), masked);
}

TEST(TextMask, MasksWhatIsNoValueOfAKnownRecord) {
  const struct {
    const char* line;
    const char* masked;
  } kCases[] = {
      {"1 Pane 450", "9 Xxxx 999"},                            // no separator
      {"10;Anna;333;", "99;Xxxx;999;"},                        // unknown type
      {"01;Anna;333;", "99;Xxxx;999;"},                        // unknown, too
      {"4;5;Anna", "4;5;Xxxx"},                                // unknown type
      {"2;1;50 EURO;", "2;1;99 XXXX;"},                        // not a number
      {"21;1;2;3;4;5;6;7;8;9;", "21;9;9;9;9;9;9;9;9;9;"},      // after the last separator
      {"1;a;1;1;1;1;1;1;1;0000;", "1;x;1;1;1;9;9;1;1;9999;"},  // not a number
      {"", ""},
  };
  for (const auto& [line, masked] : kCases) EXPECT_EQ(MaskTexts(line, ';'), masked);
}

TEST(TextMask, FindsTheFieldsAfterLeadingBlanks) {
  EXPECT_EQ(MaskTexts("\xEF\xBB\xBF 4;5;", ';'), "xxx 4;5;");
  EXPECT_EQ(MaskTexts("1\x7fPane\x7f"
                      "1000\x7f",
                      '\x7f'),
            "1\x7fXxxx\x7f"
            "1000\x7f");
}

TEST(TextMask, MasksAllWhereBlanksSeparate) { EXPECT_EQ(MaskTexts("2 1 5000 .", ' '), "9 9 9999 ."); }

TEST(TextMask, KeepsTheLinesOfATicket) {
  EXPECT_EQ(MaskTicketTexts("23;Anna;1;\r\n\n4;5;\r2;1;50;", ';'), "23;Xxxx;1;\r\n\n4;5;\r2;1;50;");
}

TEST(TextMask, MasksNothingButTheTextOfAValidRecord) {
  for (const char* line : {"0;5;",
                           "1;Anna 7;1,250;450;3;;;1;;",
                           "1;1;2;;50;Anna 7;1;;-1;",
                           "1;2;2;;1500;;;;-1;",
                           "2;1;50;2;Anna 7;",
                           "3;Anna 7;450;3;;;1;;1000;",
                           "4;0;",
                           "5;0;3;;1;700;",
                           "5;2;1;Anna 7;1;700;",
                           "6;3;1;1500;",
                           "7;1;1;500;Anna 7;1;",
                           "8;1;0;",
                           "9;Anna 7;450;3;;1;;;1000;",
                           "14;700;1;3;Anna 7;1;",
                           "15;1;700;",
                           "17;;7;Anna 7;1;",
                           "20;1;",
                           "21;",
                           "22;",
                           "23;Anna 7;1;",
                           "24;Anna 7;1;",
                           "25;;2;Anna 7;1;",
                           "26;",
                           "27;1;700;",
                           "28;1;Anna 7;",
                           "29;1;",
                           "30;1;2;Anna 7;",
                           "31;1;",
                           "32;1;4;300;",
                           "33;1;C:\\shop\\logo.bmp;",
                           "34;0;700;1;",
                           "35;1;700;1;",
                           "36;1;700;",
                           "37;1;",
                           "38;1;9;Anna 7;15;",
                           "39;1;9;Anna 7;15;",
                           "40;1;",
                           "41;1;",
                           "42;1;250;",
                           "43;1;0;100;250;3;Anna 7;"}) {
    std::string expected = line;
    if (const std::size_t text = expected.find("Anna 7"); text != std::string::npos) {
      expected.replace(text, 6, "Xxxx 9");
    }
    EXPECT_EQ(MaskTexts(line, ';'), expected);
  }
}

TEST(TextMask, MasksWhatTheCommandOfARecordHasNoPlaceFor) {
  const struct {
    const char* line;
    const char* masked;
  } kCases[] = {
      {"2;1;5000;2;", "2;1;5000;9;"},  // without a text
      {"32;1;5;333;", "32;1;5;999;"},  // a report without a parameter
      {"6;9;1;1500;", "6;9;9;9999;"},  // no such choice
      {"1;9;1;;50;;;;-1;", "1;9;9;;99;;;;-1;"}, {"4;5;333;", "4;5;999;"},
  };
  for (const auto& [line, masked] : kCases) EXPECT_EQ(MaskTexts(line, ';'), masked);
}

}  // namespace
}  // namespace orvenza::test
