#include "lab/handover/ticket_text.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace orvenza::test {
namespace {

constexpr char kDel = '\x7F';

std::string Refusal(std::string_view file, char separator = kDel, std::optional<char> written = {}) {
  try {
    return "accepted: " + TicketText(file, separator, written);
  } catch (const std::runtime_error& refused) {
    return refused.what();
  }
}

TEST(TicketText, GetsTheSeparatorOfTheSettings) {
  EXPECT_EQ(TicketText("4;5;\r\n20;1;\r\n", kDel, {}),
            "4\x7F"
            "5\x7F\r\n20\x7F"
            "1\x7F\r\n");
  EXPECT_EQ(TicketText("4\x7F"
                       "5\x7F\r\n",
                       ';', {}),
            "4;5;\r\n");
  EXPECT_EQ(TicketText("4;5;\r\n", '|', {}), "4|5|\r\n");
  EXPECT_EQ(TicketText("4|5|\r\n", '|', {}), "4|5|\r\n");
}

TEST(TicketText, KeepsTheOtherSeparatorInATextOfTheFile) {
  EXPECT_EQ(TicketText("24\x7F"
                       "a;b\x7F"
                       "1\x7F",
                       kDel, {}),
            "24\x7F"
            "a;b\x7F"
            "1\x7F\r\n");
}

TEST(TicketText, FindsTheSeparatorBehindTheRecordType) {
  EXPECT_EQ(TicketText("hello; world\r\n  24;a;1;\r\n;5;\r\n", kDel, {}),
            "hello\x7F world\r\n  24\x7F"
            "a\x7F"
            "1\x7F\r\n\x7F"
            "5\x7F\r\n");
}

TEST(TicketText, EndsEachLineInCrLf) {
  EXPECT_EQ(TicketText("4;5;\n\n4;6;\r4;7;\r\n\x1A", ';', {}), "4;5;\r\n\r\n4;6;\r\n4;7;\r\n\x1A\r\n");
}

TEST(TicketText, IsInWindows1252) {
  EXPECT_EQ(TicketText("24;\xC3\x88 \xE2\x82\xAC?;1;", ';', {}), "24;\xC8 \x80?;1;\r\n");
  EXPECT_EQ(TicketText("24;\xC8 \x80;1;", ';', {}), "24;\xC8 \x80;1;\r\n");
  EXPECT_EQ(TicketText("\xEF\xBB\xBF"
                       "4;5;",
                       ';', {}),
            "4;5;\r\n");
}

TEST(TicketText, TakesTheSeparatorThatIsNamed) {
  EXPECT_EQ(TicketText("4|5|\r\n", kDel, '|'),
            "4\x7F"
            "5\x7F\r\n");
}

TEST(TicketText, RefusesToGuess) {
  EXPECT_EQ(Refusal("4;5;\r\n4\x7F"
                    "5\x7F\r\n"),
            "line 2 has the character 127 behind its record type, an earlier line has ';'; name the "
            "separator with --separator");
  for (const char* file : {"hello\r\n", "4|5|\r\n", "12345"}) {
    EXPECT_EQ(Refusal(file),
              "no line begins with a record type and a separator (the character 127 or ';'); name the "
              "separator with --separator")
        << file;
  }
}

TEST(TicketText, SaysThatAFileIsEmpty) {
  for (const char* file : {"", "\r\n", "\xEF\xBB\xBF \n\n"}) EXPECT_EQ(Refusal(file), "it is empty") << file;
}

TEST(TicketText, RefusesATextThatWouldBeCut) {
  EXPECT_EQ(Refusal("4\x7F"
                    "5\x7F\r\n24\x7F"
                    "a;b\x7F"
                    "1\x7F\r\n",
                    ';'),
            "line 2 contains ';', which is the separator of the settings");
}

TEST(TicketText, RefusesOtherEncodings) {
  EXPECT_EQ(Refusal(std::string_view("\xFF\xFE"
                                     "4\0;\0",
                                     6)),
            "it is UTF-16, two bytes a character; save it as UTF-8");
  EXPECT_EQ(Refusal(std::string_view("4\0;\0\n\0", 6)),
            "it is UTF-16, two bytes a character; save it as UTF-8");
  EXPECT_EQ(Refusal("4;5;\n24;\xC4\x8D;1;\n"),
            "line 2 contains a character that does not exist in Windows-1252");
}

}  // namespace
}  // namespace orvenza::test
