#include "tickets/field_format.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace orvenza {
namespace {

using Formatter = std::function<std::string(std::string_view)>;

struct Case {
  std::string text;
  std::string expected;
};

void ExpectAll(const Formatter& format, const std::vector<Case>& cases) {
  for (const Case& one : cases) EXPECT_EQ(format(one.text), one.expected) << '"' << one.text << '"';
}

constexpr ValueForm kDigitFormatters[] = {
    FmtNum2Max20,     FmtNum2Max10,   FmtNum2Range10, FmtNum2Range40,  FmtNum2Max40,
    FmtNum2Upto10,    FmtNum4Max1260, FmtNum4Min1,    FmtNum4Range200, FmtNum4Range9999,
    FmtNum5Range9999, FmtAmount9,     FmtDigit0to5,   FmtDigit0to3,    FmtDigit0to9,
};

TEST(FieldFormat, DigitFormattersRejectWhatIsNotOnlyDigits) {
  const std::string rejected[] = {
      "",    " ",   "     ", "1a",  "a1",       "-1",  "+1",  "1.0",
      "1,0", "1 2", "\t1",   "1\n", "\xD9\xA1", "0x1", "1e1", std::string("1\0", 2)};
  for (const ValueForm& format : kDigitFormatters) {
    for (const std::string& text : rejected) EXPECT_EQ(format(text), "") << '"' << text << '"';
  }
}

TEST(FieldFormat, DigitFormattersIgnoreBlanksAroundTheValue) {
  ExpectAll(FmtNum2Max20, {{" 7 ", "07"}, {"  7", "07"}, {"7   ", "07"}});
  ExpectAll(FmtAmount9, {{" 150 ", "000000150"}});
  ExpectAll(FmtDigit0to5, {{" 5 ", "5"}});
}

TEST(FieldFormat, FmtNum2Max20SendsLargerValuesAs20) {
  ExpectAll(FmtNum2Max20, {{"0", "00"},
                           {"00", "00"},
                           {"7", "07"},
                           {"19", "19"},
                           {"20", "20"},
                           {"21", "20"},
                           {"99", "20"},
                           {"123", "20"}});
}

TEST(FieldFormat, DigitFormattersKeepTheLastDigitsOfALongerValue) {
  ExpectAll(FmtNum2Max20, {{"105", "05"}, {"1000000000000000000000020", "20"}, {"100", "00"}});
  ExpectAll(FmtNum4Min1, {{"12345", "2345"}, {"10000", ""}, {"90001", "0001"}});
  ExpectAll(FmtNum5Range9999, {{"100007", "00007"}});
}

TEST(FieldFormat, FmtNum2Max10SendsLargerValuesAs10) {
  ExpectAll(FmtNum2Max10, {{"0", "00"}, {"1", "01"}, {"10", "10"}, {"11", "10"}, {"99", "10"}});
}

TEST(FieldFormat, FmtNum2Range10SendsZeroAndLargerValuesAs10) {
  ExpectAll(FmtNum2Range10,
            {{"0", "10"}, {"1", "01"}, {"5", "05"}, {"10", "10"}, {"11", "10"}, {"99", "10"}, {"100", "10"}});
}

TEST(FieldFormat, FmtNum2Range40SendsZeroAndLargerValuesAs40) {
  ExpectAll(FmtNum2Range40,
            {{"0", "40"}, {"1", "01"}, {"39", "39"}, {"40", "40"}, {"41", "40"}, {"99", "40"}});
}

TEST(FieldFormat, FmtNum2Max40SendsLargerValuesAs40) {
  ExpectAll(FmtNum2Max40, {{"0", "00"}, {"39", "39"}, {"40", "40"}, {"41", "40"}, {"99", "40"}});
}

TEST(FieldFormat, FmtNum2Upto10RejectsLargerValues) {
  ExpectAll(FmtNum2Upto10, {{"0", "00"}, {"9", "09"}, {"10", "10"}, {"11", ""}, {"99", ""}, {"110", "10"}});
}

TEST(FieldFormat, FmtNum4Max1260SendsLargerValuesAs1260) {
  ExpectAll(
      FmtNum4Max1260,
      {{"0", "0000"}, {"1", "0001"}, {"1259", "1259"}, {"1260", "1260"}, {"1261", "1260"}, {"9999", "1260"}});
}

TEST(FieldFormat, FmtNum4Min1RejectsZero) {
  ExpectAll(FmtNum4Min1, {{"0", ""}, {"0000", ""}, {"1", "0001"}, {"9999", "9999"}});
}

TEST(FieldFormat, FmtNum4Range200RejectsLargerValues) {
  ExpectAll(FmtNum4Range200, {{"0", "0000"}, {"199", "0199"}, {"200", "0200"}, {"201", ""}, {"9999", ""}});
}

TEST(FieldFormat, FmtNum4Range9999RejectsZero) {
  ExpectAll(FmtNum4Range9999, {{"0", ""}, {"1", "0001"}, {"9999", "9999"}, {"10000", ""}, {"12345", "2345"}});
}

TEST(FieldFormat, FmtNum5Range9999RejectsZeroAndFiveDigitValues) {
  ExpectAll(FmtNum5Range9999,
            {{"0", ""}, {"1", "00001"}, {"9999", "09999"}, {"10000", ""}, {"99999", ""}, {"00012", "00012"}});
}

TEST(FieldFormat, FmtAmount9PadsAndNeverCuts) {
  ExpectAll(FmtAmount9, {{"0", "000000000"},
                         {"150", "000000150"},
                         {"123456789", "123456789"},
                         {"1234567890", "1234567890"},
                         {"98765432109", "98765432109"}});
}

TEST(FieldFormat, NumberWithinRejectsValuesOutsideAndCutsNothing) {
  constexpr ValueForm upTo30 = NumberWithin(30);
  ExpectAll(upTo30, {{"1", "01"}, {" 9 ", "09"}, {"10", "10"}, {"30", "30"}, {"05", "05"}, {"005", "05"}});
  ExpectAll(upTo30, {{"0", ""},
                     {"00", ""},
                     {"31", ""},
                     {"105", ""},
                     {"4294967297", ""},
                     {"", ""},
                     {"1a", ""},
                     {"-1", ""},
                     {"1.", ""}});
  EXPECT_EQ(NumberWithin(5)("5"), "05");
  EXPECT_EQ(NumberWithin(5)("6"), "");
}

TEST(FieldFormat, NumbersAndDigitsHaveALowestValueToo) {
  ExpectAll(ValueForm{ValueKind::kNumber, 2, 5, 30}, {{"4", ""}, {"0", ""}, {"5", "05"}, {"30", "30"}});
  ExpectAll(ValueForm{ValueKind::kNumber, 2, 0, 30}, {{"", ""}, {"0", "00"}, {"000", "00"}, {"31", ""}});
  ExpectAll(ValueForm{ValueKind::kDigit, 1, 2, 5}, {{"", ""}, {"1", ""}, {"0", ""}, {"2", "2"}, {"5", "5"}});
}

TEST(FieldFormat, FmtDigit0to5AcceptsSixDigits) {
  ExpectAll(FmtDigit0to5, {{"0", "0"}, {"3", "3"}, {"5", "5"}, {"6", ""}, {"9", ""}, {"10", ""}, {"55", ""}});
}

TEST(FieldFormat, FmtDigit0to3AcceptsFourDigits) {
  ExpectAll(FmtDigit0to3, {{"0", "0"}, {"3", "3"}, {"4", ""}, {"9", ""}, {"10", ""}});
}

TEST(FieldFormat, FmtDigit0to9AcceptsEveryDigit) {
  ExpectAll(FmtDigit0to9, {{"0", "0"}, {"9", "9"}, {"10", ""}, {"99", ""}});
}

TEST(FieldFormat, SingleDigitsAreReturnedUnchanged) {
  ExpectAll(FmtDigit0to5, {{"05", "05"}, {"000", "000"}, {"06", ""}});
  ExpectAll(FmtDigit0to9, {{"009", "009"}, {"010", ""}});
}

TEST(FieldFormat, FmtTextFillsUpWithBlanks) {
  EXPECT_EQ(FmtText("pane", 6), "pane  ");
  EXPECT_EQ(FmtText("pane", 4), "pane");
  EXPECT_EQ(FmtText(" ", 3), "   ");
}

TEST(FieldFormat, FmtTextCutsToTheWidth) {
  EXPECT_EQ(FmtText("abcdefghijklmnopqrst", 16), "abcdefghijklmnop");
  EXPECT_EQ(FmtText("abc", 1), "a");
}

TEST(FieldFormat, FmtTextKeepsItsBlanks) { EXPECT_EQ(FmtText("  a b ", 8), "  a b   "); }

TEST(FieldFormat, FmtTextRejectsAnEmptyTextAndNoWidth) {
  EXPECT_EQ(FmtText("", 16), "");
  EXPECT_EQ(FmtText("pane", 0), "");
  EXPECT_EQ(FmtText("pane", -1), "");
}

TEST(FieldFormat, FmtQuantityTakesEitherSeparator) {
  ExpectAll(FmtQuantity, {{"1.", "0001000"},
                          {"1,0", "0001000"},
                          {"2,5", "0002500"},
                          {"2.5", "0002500"},
                          {"0.125", "0000125"},
                          {"12,34", "0012340"},
                          {" 3,25 ", "0003250"}});
}

TEST(FieldFormat, FmtQuantityWithoutSeparatorCountsThousandths) {
  ExpectAll(FmtQuantity,
            {{"1500", "0001500"}, {"1000", "0001000"}, {"500", "0000500"}, {"12345678", "12345678"}});
}

TEST(FieldFormat, FmtQuantityRejectsFewerThanThreeDigitsWithoutSeparator) {
  ExpectAll(FmtQuantity, {{"1", ""}, {"12", ""}, {" 12 ", ""}, {"0", ""}});
}

TEST(FieldFormat, FmtQuantityCutsDecimalsWithoutRounding) {
  ExpectAll(FmtQuantity, {{"1.9999", "0001999"}, {"0,0009", "0000000"}, {"1.000999999", "0001000"}});
}

TEST(FieldFormat, FmtQuantityKeepsALongIntegerPartWhole) {
  ExpectAll(FmtQuantity, {{"12345.6", "12345600"}, {"9999,999", "9999999"}, {"123456,", "123456000"}});
}

TEST(FieldFormat, FmtQuantityTakesAMissingPartAsZero) {
  ExpectAll(FmtQuantity, {{",5", "0000500"}, {"5,", "0005000"}, {".", "0000000"}});
}

TEST(FieldFormat, FmtQuantityRejectsASecondSeparator) {
  ExpectAll(FmtQuantity, {{"1.2.3", ""}, {"1.000,50", ""}, {"1,,5", ""}, {"1..", ""}});
}

TEST(FieldFormat, FmtQuantityRejectsOtherCharacters) {
  ExpectAll(FmtQuantity,
            {{"", ""}, {"   ", ""}, {"-1.0", ""}, {"1.5x", ""}, {"x1.5", ""}, {"1 .5", ""}, {"abcd", ""}});
  // Also if the character comes after the decimals that are kept.
  EXPECT_EQ(FmtQuantity("1.000x"), "");
}

TEST(FieldFormat, FieldsOfMillionsOfCharactersAreFormatted) {
  const std::string zeros(5000000, '0');
  EXPECT_EQ(FmtNum2Max20(zeros + "7"), "07");
  EXPECT_EQ(FmtDigit0to9("1" + zeros), "");
  EXPECT_EQ(FmtDigit0to9(zeros + "7"), zeros + "7");
  EXPECT_EQ(FmtQuantity("1." + zeros), "0001000");
  EXPECT_EQ(FmtText(zeros, 3), "000");
  EXPECT_EQ(FmtNum2Max20(std::string(5000000, ' ') + "7"), "07");
}

}  // namespace
}  // namespace orvenza
