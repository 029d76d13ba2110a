#include "core/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace orvenza {
namespace {

using std::string_literals::operator""s;

TEST(Trim, TakesAwayBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(ToUpperAscii, LeavesEverythingButTheLettersAToZ) {
  EXPECT_EQ(ToUpperAscii("azAZ09 `{@["), "AZAZ09 `{@[");
  EXPECT_EQ(ToUpperAscii("già"), "GIà");
}

TEST(Middle, CountsFromOne) {
  EXPECT_EQ(Middle("abcdef", 1, 2), "ab");
  EXPECT_EQ(Middle("abcdef", 4, 2), "de");
  EXPECT_EQ(Middle("abcdef", 6, 9), "f");
}

TEST(Middle, IsEmptyOutsideTheText) {
  EXPECT_EQ(Middle("abc", 0, 2), "");
  EXPECT_EQ(Middle("abc", 4, 1), "");
  EXPECT_EQ(Middle("", 1, 1), "");
}

TEST(Right, TakesTheLastCharacters) {
  EXPECT_EQ(Right("ERR17", 2), "17");
  EXPECT_EQ(Right("17", 2), "17");
  EXPECT_EQ(Right("7", 2), "7");
  EXPECT_EQ(Right("abc", 0), "");
}

TEST(OnlyDigits, IsFalseForAnyOtherCharacter) {
  for (const char* text : {"", "0", "0123456789"}) EXPECT_TRUE(OnlyDigits(text)) << text;
  for (const char* text : {" 1", "1 ", "-1", "1.5", "1/2", "1:2", "\xB2"})
    EXPECT_FALSE(OnlyDigits(text)) << text;
}

TEST(WithoutLeadingZeros, LeavesTheOthersAndNothingOfZeros) {
  EXPECT_EQ(WithoutLeadingZeros("00100"), "100");
  EXPECT_EQ(WithoutLeadingZeros("5"), "5");
  EXPECT_EQ(WithoutLeadingZeros("00"), "");
  EXPECT_EQ(WithoutLeadingZeros(""), "");
}

TEST(LeadingNumber, ReadsWhatTheTextBeginsWith) {
  struct {
    const char* text;
    double number;
  } const rows[] = {
      {"12", 12},          {"12abc", 12},  {"-3", -3},
      {"+4", 4},           {"2.5", 2.5},   {".5", 0.5},
      {"-.5", -0.5},       {"7.", 7},      {"1.2.3", 1.2},
      {"1,5", 1},          {"1e5", 1},     {" 42 ", 42},
      {"1 234.5", 1234.5}, {"- 1 2", -12}, {"0012", 12},
      {"12-3", 12},        {"12+3", 12},   {"+ 8x", 8},
      {" 2 02 00", 20200}, {"-0", 0},      {"16777217", 16777217},
  };
  for (const auto& row : rows) EXPECT_EQ(LeadingNumber(row.text), row.number) << row.text;
}

TEST(LeadingNumber, IsZeroForATextThatBeginsWithNone) {
  for (const char* text : {"", " ", "abc", "x12", "-", "+", ".", "-.", "--5", "+-5", "-+5", "..5", "\t5",
                           "&H10", "inf", "nan", ",5"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
}

TEST(LeadingNumber, StaysFiniteForAnyNumberOfDigits) {
  EXPECT_EQ(LeadingNumber(std::string(500, '9')), std::numeric_limits<double>::max());
  EXPECT_EQ(LeadingNumber("-" + std::string(500, '9')), std::numeric_limits<double>::lowest());
  EXPECT_EQ(LeadingNumber("0." + std::string(500, '0') + "1"), 0);
  EXPECT_EQ(LeadingNumber("-0." + std::string(500, '0') + "1"), 0);
  EXPECT_EQ(LeadingNumber(std::string(500, '0') + "7"), 7);
}

TEST(LeadingInteger, CutsTheFractionOff) {
  EXPECT_EQ(LeadingInteger("12.9"), 12);
  EXPECT_EQ(LeadingInteger("-12.9"), -12);
  EXPECT_EQ(LeadingInteger("19200 bps"), 19200);
  EXPECT_EQ(LeadingInteger("abc"), 0);
}

TEST(LeadingInteger, StaysWithin32Bits) {
  struct {
    std::string text;
    int number;
  } const rows[] = {
      {"2147483647", 2147483647},
      {"2147483648", 2147483647},
      {"-2147483648", -2147483647 - 1},
      {"-2147483649", -2147483647 - 1},
      {"2147483646", 2147483646},
      {std::string(99, '9'), 2147483647},
      {"-" + std::string(500, '9'), -2147483647 - 1},
  };
  for (const auto& row : rows) EXPECT_EQ(LeadingInteger(row.text), row.number) << row.text;
}

TEST(FirstCharacters, NeverCutsALetterInTwo) {
  EXPECT_EQ(FirstCharacters("Sì €!", 1), "S");
  EXPECT_EQ(FirstCharacters("Sì €!", 2), "Sì");
  EXPECT_EQ(FirstCharacters("Sì €!", 4), "Sì €");
  EXPECT_EQ(FirstCharacters("Sì €!", 9), "Sì €!");
  EXPECT_EQ(FirstCharacters("Sì", 0), "");
  EXPECT_EQ(FirstCharacters("", 3), "");
}

TEST(CountCharacters, CountsLettersAndNotBytes) {
  EXPECT_EQ(CountCharacters(""), 0U);
  EXPECT_EQ(CountCharacters("Sì €!"), 5U);
  EXPECT_EQ(CountCharacters("\xF0\x9F\x98\x80"), 1U);
}

TEST(FromWindows1252, KnowsTheBytes128To159) {
  struct {
    char byte;
    const char* text;
  } const rows[] = {
      {'\x80', "€"}, {'\x82', "‚"}, {'\x83', "ƒ"}, {'\x84', "„"}, {'\x85', "…"}, {'\x86', "†"}, {'\x87', "‡"},
      {'\x88', "ˆ"}, {'\x89', "‰"}, {'\x8A', "Š"}, {'\x8B', "‹"}, {'\x8C', "Œ"}, {'\x8E', "Ž"}, {'\x91', "‘"},
      {'\x92', "’"}, {'\x93', "“"}, {'\x94', "”"}, {'\x95', "•"}, {'\x96', "–"}, {'\x97', "—"}, {'\x98', "˜"},
      {'\x99', "™"}, {'\x9A', "š"}, {'\x9B', "›"}, {'\x9C', "œ"}, {'\x9E', "ž"}, {'\x9F', "Ÿ"},
  };
  for (const auto& row : rows) EXPECT_EQ(FromWindows1252(std::string(1, row.byte)), row.text) << row.text;
}

TEST(FromWindows1252, MakesTheFiveUnusedBytesTheControlsOfTheirNumber) {
  EXPECT_EQ(FromWindows1252("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(ToWindows1252, ReversesFromWindows1252) {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  EXPECT_EQ(ToWindows1252(FromWindows1252(bytes)), bytes);
  EXPECT_EQ(ToWindows1252(""), "");
}

TEST(ToWindows1252, RefusesWhatDoesNotExistThere) {
  EXPECT_EQ(ToWindows1252("a?\xC4\x8D"), std::nullopt);
  EXPECT_EQ(ToWindows1252("a?"), "a?");
}

TEST(FromWindows1252, ReadsTheOtherBytesAsTheirOwnNumber) {
  EXPECT_EQ(FromWindows1252("\xA0\xBF\xC0\xE0\xFF"), "\xC2\xA0¿Ààÿ");
  EXPECT_EQ(FromWindows1252("a\x7F\0z"s), "a\x7F\0z"s);
}

TEST(ToUtf8, LeavesValidSequencesUnchanged) {
  for (const char* text : {"", "plain", "già", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                           "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(ToUtf8(text), text);
  }
}

TEST(ToUtf8, ReadsEveryOtherByteTextAsWindows1252) {
  struct {
    const char* bytes;
    const char* text;
  } const rows[] = {
      {"gi\xE0", "già"},
      {"gi\xE0 ok", "già ok"},
      {"\x80", "€"},
      {"\xBF", "¿"},
      {"\xC0\xAF", "À¯"},  // Overlong sequences,
      {"\xC1\xBF", "Á¿"},
      {"\xE0\x9F\xBF", "àŸ¿"},
      {"\xF0\x8F\xBF\xBF", "ð\xC2\x8F¿¿"},
      {"\xED\xA0\x80", "í\xC2\xA0€"},       // half of a surrogate pair,
      {"\xF4\x90\x80\x80", "ô\xC2\x90€€"},  // beyond the last code point,
      {"\xF5\x80\x80\x80", "õ€€€"},
      {"\xC3", "Ã"},  // truncated sequences,
      {"\xE2\x82", "â‚"},
      {"\xC3(", "Ã("},
      {"\xE2\x82(", "â‚("},
      {"è \xE8", "Ã¨ è"},  // and a mixture of both encodings.
  };
  for (const auto& row : rows) EXPECT_EQ(ToUtf8(row.bytes), row.text) << row.text;
}

TEST(ShownLine, ShowsControlCharactersAsBlanks) {
  EXPECT_EQ(ShownLine("1\x7FPane\t\x1F\0x"s, 60), "1 Pane   x");
}

TEST(ShownLine, ReadsTheLineAsWindows1252) { EXPECT_EQ(ShownLine("Caff\xE8 \x80", 60), "Caffè €"); }

TEST(LoggedLine, KeepsTheLineAsItWasSent) {
  EXPECT_EQ(LoggedLine("1\x7FPane\t\x1F\0x\x7F"s), "1\x7FPane   x\x7F");
  EXPECT_EQ(LoggedLine("Caff\xE8 \x80"), "Caffè €");
  EXPECT_EQ(LoggedLine(std::string(500, 'x')), std::string(500, 'x'));
  EXPECT_EQ(LoggedLine(std::string(501, 'x')), std::string(500, 'x') + "...");
}

TEST(WithPrefix, PutsItBeforeEachLine) {
  EXPECT_EQ(WithPrefix("a: ", ""), "a: ");
  EXPECT_EQ(WithPrefix("a: ", "one"), "a: one");
  EXPECT_EQ(WithPrefix("a: ", "one\n\ntwo"), "a: one\na: \na: two");
}

TEST(ShownLine, MarksWhereItWasCut) {
  EXPECT_EQ(ShownLine("12345", 5), "12345");
  EXPECT_EQ(ShownLine("123456", 5), "12345...");
  EXPECT_EQ(ShownLine("\xE8\xE8\xE8", 2), "èè...");
  EXPECT_EQ(ShownLine("", 5), "");
}

}  // namespace
}  // namespace orvenza
