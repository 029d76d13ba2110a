#include "platform/name_mask.h"

#include <gtest/gtest.h>

namespace orvenza {
namespace {

struct Row {
  const char* name;
  const char* mask;
};

TEST(NameMask, FitsTheseNames) {
  const Row rows[] = {
      {"a.txt", "*.txt"},     {"A.TXT", "*.txt"},
      {"a.txt", "*.TXT"},     {".txt", "*.txt"},
      {"a.b.txt", "*.txt"},   {"noext", "*.*"},
      {"a.txt", "*.*"},       {"a.txt", "*"},
      {"a.txt", "a.txt"},     {"ticket1.txt", "t*1.txt"},
      {"a1.txt", "a?.txt"},   {"\xC3\xA0.txt", "?.txt"},
      {"aXbXc", "a*b*c"},     {"aab", "*ab"},
      {"abcabd", "*abd"},     {"storico_20240303", "storico_20240303*"},
      {"a.txt.txt", "*.txt"}, {"a", "a**"},
      {"\xFF\xFE", "??"},
  };
  for (const Row& row : rows) EXPECT_TRUE(MatchesMask(row.name, row.mask)) << row.name << " " << row.mask;
}

TEST(NameMask, DoesNotFitTheseNames) {
  const Row rows[] = {
      {"a.txt_old", "*.txt"}, {"a.txt", ""},       {"", "?"},       {"atxt", "*.txt"}, {"a.tx", "*.txt"},
      {"ab.txt", "?.txt"},    {".txt", "?.txt"},   {"a.txt", "b*"}, {"noext", "*.?"},  {"aXbX", "a*b*c"},
      {"\xC3\xA0", "??"},     {"a.txt", "a.txt?"}, {"a\\b", "a?"},  {"_", "\x7F"},
  };
  for (const Row& row : rows) EXPECT_FALSE(MatchesMask(row.name, row.mask)) << row.name << " " << row.mask;
}

TEST(NameMask, ComparesPunctuationExactly) {
  EXPECT_FALSE(MatchesMask("[", "{"));
  EXPECT_FALSE(MatchesMask("@", "`"));
}

TEST(NameMask, IsQuickWithManyStars) {
  EXPECT_FALSE(MatchesMask(std::string(200, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b"));
}

}  // namespace
}  // namespace orvenza
