#include "tickets/record.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace orvenza {
namespace {

RecordFields Split(std::string_view line, char separator = ';') {
  RecordFields fields;
  SplitRecord(line, separator, fields);
  return fields;
}

std::vector<std::string> Fields(std::string_view line, char separator = ';') {
  const RecordFields fields = Split(line, separator);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < fields.Count(); ++i) texts.emplace_back(fields[i]);
  return texts;
}

using Texts = std::vector<std::string>;

TEST(SplitRecord, CutsFieldsClosedByTheSeparator) {
  const RecordFields fields = Split("4;5;");
  EXPECT_EQ(fields.Count(), 2U);
  EXPECT_EQ(fields[0], "4");
  EXPECT_EQ(fields[1], "5");
  for (std::size_t i = 2; i <= 32; ++i) EXPECT_EQ(fields[i], "") << i;
}

TEST(SplitRecord, LosesALastFieldThatIsNotClosed) {
  const RecordFields fields = Split("4;5");
  EXPECT_EQ(fields.Count(), 1U);
  EXPECT_EQ(fields[0], "4");
  EXPECT_EQ(fields[1], "");
}

TEST(SplitRecord, UsesTheDefaultSeparator) {
  EXPECT_EQ(Fields("2\x7F"
                   "1\x7F"
                   "0\x7F",
                   '\x7F'),
            (Texts{"2", "1", "0"}));
}

TEST(SplitRecord, KeepsEmptyFields) { EXPECT_EQ(Fields(";5;;6;"), (Texts{"", "5", "", "6"})); }

TEST(SplitRecord, KeepsBlanksInsideFields) { EXPECT_EQ(Fields("1; pane ; ;"), (Texts{"1", " pane ", " "})); }

TEST(SplitRecord, IgnoresTextAfterTheNinthSeparator) {
  EXPECT_EQ(Fields("0;1;2;3;4;5;6;7;8;9;10;"), (Texts{"0", "1", "2", "3", "4", "5", "6", "7", "8"}));
  EXPECT_EQ(Split("0;1;2;3;4;5;6;7;8;9;10;")[9], "");
}

TEST(SplitRecord, YieldsNoFieldsWithoutASeparator) {
  const RecordFields fields = Split("4");
  EXPECT_EQ(fields.Count(), 0U);
  EXPECT_EQ(fields[0], "");
  EXPECT_FALSE(fields.IsEmpty());
}

TEST(SplitRecord, TakesControlAndNonAsciiCharactersAsBlanks) {
  EXPECT_EQ(Fields("1;Caff\xE8 e t\xE8;"), (Texts{"1", "Caff  e t "}));
  EXPECT_EQ(Fields("1;a\tb\x1F"
                   "c\x80"
                   "d\xFF"
                   "e;"),
            (Texts{"1", "a b c d e"}));
  EXPECT_EQ(Fields(std::string("1;a\0b;", 6)), (Texts{"1", "a b"}));
}

TEST(SplitRecord, KeepsEveryPrintableCharacterAndCharacter127) {
  std::string printable;
  for (char c = 33; c < 127; ++c) {
    if (c != ';') printable += c;
  }
  printable += '\x7F';
  EXPECT_EQ(Fields(printable + ";"), (Texts{printable}));
}

TEST(SplitRecord, RemovesBlanksAroundTheLine) {
  EXPECT_EQ(Fields("  4;5;  "), (Texts{"4", "5"}));
  EXPECT_EQ(Fields("\t4;5;\r"), (Texts{"4", "5"}));
}

TEST(SplitRecord, TakesALineOfBlanksAsEmpty) {
  for (const std::string& line : {std::string(), std::string("   "), std::string("\x1A"), std::string("\t\r"),
                                  std::string("\0\0", 2)}) {
    const RecordFields fields = Split(line);
    EXPECT_TRUE(fields.IsEmpty());
    EXPECT_EQ(fields.Count(), 0U);
  }
}

TEST(SplitRecord, TakesALineThatOnlyBecomesBlankAsOneWithoutFields) {
  for (const char* line : {"\xA0\xE8", "\xEF\xBB\xBF", " \t\x80 "}) {
    const RecordFields fields = Split(line);
    EXPECT_FALSE(fields.IsEmpty());
    EXPECT_EQ(fields.Count(), 0U);
    EXPECT_EQ(fields.Rest(), "");
  }
}

TEST(SplitRecord, TakesALineOfSeparatorsAsARecord) {
  const RecordFields fields = Split(";");
  EXPECT_FALSE(fields.IsEmpty());
  EXPECT_EQ(fields.Count(), 1U);
}

TEST(SplitRecord, NeverFindsAControlCharacterAsSeparator) {
  const RecordFields tab = Split("4\t5\t", '\t');
  EXPECT_EQ(tab.Count(), 0U);
  EXPECT_FALSE(tab.IsEmpty());
  EXPECT_EQ(Split(std::string_view("4\0"
                                   "5\0",
                                   4),
                  '\0')
                .Count(),
            0U);
}

TEST(SplitRecord, LosesTheLastFieldWhenTheSeparatorIsABlank) {
  // The trailing blank, a separator, is removed with the blanks around the line.
  EXPECT_EQ(Fields("4 5 ", ' '), (Texts{"4"}));
  EXPECT_EQ(Fields("4\t5 x", ' '), (Texts{"4", "5"}));
}

TEST(SplitRecord, ForgetsTheLineBefore) {
  RecordFields fields;
  SplitRecord("1;2;3;4;", ';', fields);
  SplitRecord("9;8;", ';', fields);
  EXPECT_EQ(fields.Count(), 2U);
  EXPECT_EQ(fields[0], "9");
  EXPECT_EQ(fields[2], "");
  SplitRecord("", ';', fields);
  EXPECT_TRUE(fields.IsEmpty());
  EXPECT_EQ(fields[0], "");
}

TEST(RecordFields, TellsWhatStandsBehindTheLastField) {
  EXPECT_EQ(Split("4;5").Rest(), "5");
  EXPECT_EQ(Split("4;5;  ").Rest(), "");
  EXPECT_EQ(Split("  4;  5 6  ").Rest(), "  5 6");
  EXPECT_EQ(Split("no separator").Rest(), "no separator");
  EXPECT_EQ(Split("1;2;3;4;5;6;7;8;9;10;11").Rest(), "10;11");
  EXPECT_EQ(Split("  ").Rest(), "");
}

TEST(RecordFields, ForgetsTheRestOfTheLineBefore) {
  RecordFields fields = Split("4;5");
  SplitRecord(" ", ';', fields);
  EXPECT_EQ(fields.Rest(), "");
}

TEST(RecordFields, TellsWhereAFieldBeganInTheLine) {
  const RecordFields fields = Split("\xEF\xBB\xBF 4;56;7;");
  EXPECT_EQ(fields.Start(0), 4U);
  EXPECT_EQ(fields.Start(1), 6U);
  EXPECT_EQ(fields.Start(2), 9U);
}

TEST(RecordFields, StartsEmpty) {
  const RecordFields fields;
  EXPECT_EQ(fields.Rest(), "");
  EXPECT_TRUE(fields.IsEmpty());
  EXPECT_EQ(fields.Count(), 0U);
  EXPECT_EQ(fields[0], "");
}

TEST(RecordFields, CopiesHaveFieldsOfTheirOwn) {
  RecordFields first = Split("4;5;");
  const RecordFields copy = first;
  const RecordFields moved = std::move(first);
  SplitRecord("1;9;", ';', first);
  EXPECT_EQ(copy[1], "5");
  EXPECT_EQ(moved[1], "5");
  EXPECT_EQ(first[1], "9");
}

TEST(RecordFields, StaysWholeWhenMovedFrom) {
  RecordFields first = Split("4;" + std::string(100, 'x') + ";");
  const RecordFields moved = std::move(first);
  EXPECT_EQ(first[1], moved[1]);
}

TEST(SplitRecord, CutsALineOfMillionsOfCharacters) {
  const std::string text(5000000, 'x');
  EXPECT_EQ(Fields("1;" + text + ";" + text), (Texts{"1", text}));
}

}  // namespace
}  // namespace orvenza
