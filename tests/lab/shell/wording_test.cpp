#include "lab/shell/wording.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

TEST(Wording, CountsThings) {
  EXPECT_EQ(CountOf(0, "file"), "0 files");
  EXPECT_EQ(CountOf(1, "file"), "1 file");
  EXPECT_EQ(CountOf(2, "file"), "2 files");
}

TEST(Wording, JoinsNumbersToRanges) {
  EXPECT_EQ(NumberRanges({}), "");
  EXPECT_EQ(NumberRanges({7}), "7");
  EXPECT_EQ(NumberRanges({0, 1, 2, 3, 5, 8, 9}), "0 to 3, 5, 8, 9");
}

TEST(Wording, GivesSizesInTheirUnits) {
  const struct {
    std::uintmax_t bytes;
    const char* text;
  } kCases[] = {
      {1, "1 byte"},
      {999, "999 bytes"},
      {1000, "1.0 kB"},
      {1049, "1.0 kB"},
      {1050, "1.1 kB"},
      {999'949, "999.9 kB"},
      {999'950, "1.0 MB"},
      {250'000, "250.0 kB"},
      {2'000'000, "2.0 MB"},
      {80'000'000'000, "80.0 GB"},
      {5'000'000'000'000, "5.0 TB"},
      {5'000'000'000'000'000, "5000.0 TB"},
  };
  for (const auto& [bytes, text] : kCases) EXPECT_EQ(SizeText(bytes), text) << bytes;
}

TEST(Wording, GivesAgesInTheirUnits) {
  const LocalTime now{2026, 3, 1, 0, 0, 30};
  const struct {
    LocalTime then;
    const char* text;
  } kCases[] = {
      {{2026, 3, 1, 0, 0, 30}, "less than a minute"},
      {{2027, 1, 1, 0, 0, 0}, "less than a minute"},
      {{2026, 2, 28, 23, 59, 30}, "1 minute"},
      {{2026, 2, 28, 23, 0, 31}, "59 minutes"},
      {{2026, 2, 28, 23, 0, 30}, "1 hour"},
      {{2026, 2, 28, 0, 0, 31}, "23 hours"},
      {{2026, 2, 28, 0, 0, 30}, "1 day"},
      {{2025, 3, 1, 0, 0, 30}, "365 days"},
  };
  for (const auto& [then, text] : kCases) EXPECT_EQ(AgeText(now, then), text);
}

TEST(Wording, WritesTimesThatSortAsTexts) {
  EXPECT_EQ(MinuteText({2026, 3, 1, 9, 5, 7}), "2026-03-01 09:05");
  EXPECT_EQ(IsoText({2026, 3, 1, 9, 5, 7}), "2026-03-01T09:05:07");
}

TEST(Wording, QuotesWhatALineCanShow) {
  EXPECT_EQ(Quoted("a\tb\x7f"), "\"a b \"");
  EXPECT_EQ(Quoted("a\xC2\x9Bz"), "\"a z\"");
  EXPECT_EQ(Quoted(std::string(101, 'x')), "\"" + std::string(100, 'x') + "...\"");
}

}  // namespace
}  // namespace orvenza::test
