#include "platform/windows/windows_error.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/failure_of.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_paths.h"

namespace orvenza::test {
namespace {

TEST(WindowsError, MapsTheSystemsCodes) {
  const struct {
    unsigned long code;
    int number;
  } rows[] = {
      {2, 53},    {3, 76},    {4, 67},    {5, 75},    {8, 7},     {14, 7},    {15, 76},  {16, 75},
      {17, 75},   {19, 75},   {20, 68},   {21, 68},   {23, 57},   {25, 57},   {27, 57},  {29, 57},
      {30, 57},   {31, 57},   {32, 70},   {33, 70},   {39, 61},   {53, 76},   {55, 68},  {59, 57},
      {64, 57},   {65, 70},   {67, 76},   {80, 58},   {87, 52},   {112, 61},  {121, 57}, {123, 52},
      {145, 75},  {161, 52},  {170, 75},  {183, 58},  {206, 52},  {223, 61},  {267, 75}, {303, 70},
      {1112, 68}, {1117, 57}, {1224, 70}, {1231, 68}, {1295, 61}, {1314, 70}, {1450, 7}, {1921, 75},
      {0, 51},    {1, 51},
  };
  for (const auto& row : rows) EXPECT_EQ(NumberOf(row.code), row.number) << row.code;
}

TEST(WindowsError, FewCodesMeanThatNothingIsThere) {
  for (const unsigned long code : {2UL, 3UL, 15UL, 123UL, 161UL, 206UL, 267UL})
    EXPECT_TRUE(MeansMissing(code)) << code;
  for (const unsigned long code : {5UL, 21UL, 32UL, 53UL, 59UL, 64UL, 67UL, 1117UL, 1231UL, 1921UL}) {
    EXPECT_FALSE(MeansMissing(code)) << code;
  }
}

TEST(WindowsError, AMissingFolderIs76EvenWhereTheSystemMissesAFile) {
  EXPECT_EQ(FailureOf([] { ThrowFileError(ERROR_FILE_NOT_FOUND, "x"); }), "53 File not found ( x )");
  EXPECT_EQ(FailureOf([] { ThrowFolderError(ERROR_FILE_NOT_FOUND, "x"); }), "76 Path not found ( x )");
  EXPECT_EQ(FailureOf([] { ThrowFolderError(ERROR_ALREADY_EXISTS, "x"); }), "58 File already exists ( x )");
}

TEST(WindowsPaths, NameTheDriveTheyBeginWith) {
  const struct {
    const char* path;
    const char* drive;
  } rows[] = {
      {"Z:\\in\\", "Z:"},
      {"c:", "c:"},
      {"c:a.txt", "c:"},
      {"\\\\server\\share\\in\\", "\\\\server\\share"},
      {"//server/share/in", "//server/share"},
      {"\\\\server\\share", "\\\\server\\share"},
      {"\\\\server", "\\\\server"},
      {"\\home\\x", ""},
      {"\\\\", ""},
      {"\\\\\\x", ""},
      {"1:\\x", ""},
      {"a", ""},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(DriveIn(row.path), row.drive) << row.path;
}

TEST(WindowsPaths, OfFoldersEndWithoutASeparator) {
  EXPECT_EQ(NativeFolderPath("C:\\storico\\"), L"C:\\storico");
  EXPECT_EQ(NativeFolderPath("C:\\a\\b\\\\"), L"C:\\a\\b");
  EXPECT_EQ(NativeFolderPath("C:\\"), L"C:\\");
  EXPECT_EQ(NativeFolderPath("\\"), L"\\");
  EXPECT_EQ(NativePath("C:\\storico\\"), L"C:\\storico\\");
}

TEST(Wide, TurnsTextIntoTheSystemsAndBack) {
  const struct {
    std::string text;
    std::wstring wide;
  } rows[] = {
      {"", L""},
      {"abc", L"abc"},
      {"caffè €", L"caff\u00E8 \u20AC"},
      {"\xF0\x9F\x98\x80", L"\xD83D\xDE00"},
      {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ToWide(row.text), row.wide);
    EXPECT_EQ(ToUtf8(row.wide), row.text);
  }
}

TEST(Wide, ReplacesWhatIsNoText) {
  EXPECT_EQ(ToWide("a\xFFz"), L"a\xFFFDz");
  EXPECT_EQ(ToUtf8(L"a\xD800z"), "a\xEF\xBF\xBDz");
}

TEST(Wide, KnowsWhatWouldNotComeBack) {
  for (const wchar_t* text : {L"", L"a.txt", L"caff\u00E8", L"\xD83D\xDE00"}) EXPECT_TRUE(IsWellFormed(text));
  for (const wchar_t* text : {L"a\xD800.txt", L"\xDE00", L"\xDE00\xD83D"}) EXPECT_FALSE(IsWellFormed(text));
}

}  // namespace
}  // namespace orvenza::test
