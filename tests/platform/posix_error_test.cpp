#include "platform/posix/posix_error.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "platform/failure_of.h"
#include "platform/posix/native_path.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

TEST(PosixError, MapsTheSystemsCodes) {
  const struct {
    int code;
    int number;
  } rows[] = {
      {ENOENT, 53},       {EACCES, 70}, {EPERM, 70},     {EROFS, 75},     {EBUSY, 75},   {ENOTDIR, 75},
      {EISDIR, 75},       {EXDEV, 75},  {ENOSPC, 61},    {EDQUOT, 61},    {EFBIG, 61},   {EEXIST, 58},
      {ENAMETOOLONG, 52}, {EINVAL, 52}, {EILSEQ, 52},    {EIO, 57},       {EMFILE, 67},  {ENFILE, 67},
      {ENXIO, 68},        {ENODEV, 68}, {ENOTEMPTY, 75}, {ENOMEM, 7},     {ETXTBSY, 70}, {EAGAIN, 70},
      {ELOOP, 75},        {EMLINK, 75}, {ESTALE, 57},    {ETIMEDOUT, 57}, {EDOM, 51},
  };
  for (const auto& row : rows) EXPECT_EQ(NumberOf(row.code), row.number) << row.code;
}

TEST(PosixError, FewCodesMeanThatNothingIsThere) {
  for (const int code : {ENOENT, ENOTDIR, ENAMETOOLONG}) EXPECT_TRUE(MeansMissing(code)) << code;
  for (const int code : {EACCES, EIO, ESTALE, ELOOP, EMFILE, ENOMEM, ETIMEDOUT, EPERM}) {
    EXPECT_FALSE(MeansMissing(code)) << code;
  }
}

TEST(PosixError, TellsAMissingFileFromAMissingFolder) {
  const TempFolder folder;
  const std::string inFolder = folder.Path("a.txt");
  const std::string beyond = folder.Path("none\\a.txt");
  EXPECT_EQ(FailureOf([&] { ThrowFileError(ENOENT, inFolder); }), "53 File not found ( " + inFolder + " )");
  EXPECT_EQ(FailureOf([&] { ThrowFileError(ENOENT, beyond); }), "76 Path not found ( " + beyond + " )");
  EXPECT_EQ(FailureOf([] { ThrowFileError(ENOENT, "a.txt"); }), "53 File not found ( a.txt )");
  EXPECT_EQ(FailureOf([&] { ThrowFolderError(ENOENT, inFolder); }), "76 Path not found ( " + inFolder + " )");
  EXPECT_EQ(FailureOf([] { ThrowFolderError(EEXIST, "x"); }), "58 File already exists ( x )");
}

TEST(NativePath, SpellsPathsAsTheSystemDoes) {
  EXPECT_EQ(NativePath("/home/x/shop\\data\\a.txt"), "/home/x/shop/data/a.txt");
  EXPECT_EQ(NativePath("\\storico\\"), "/storico/");
  EXPECT_EQ(NativePath("a.txt"), "a.txt");
  EXPECT_EQ(NativeFolderPath("\\storico\\"), "/storico");
  EXPECT_EQ(NativeFolderPath("/a/b\\\\"), "/a/b");
  EXPECT_EQ(NativeFolderPath("\\"), "/");
}

TEST(NativePath, RefusesWhatIsNoPathHere) {
  EXPECT_EQ(FailureOf([] { NativePath(""); }), "52 Bad file name or number");
  EXPECT_EQ(FailureOf([] { NativePath(std::string("a\0b", 3)); }), "52 Bad file name or number ( a )");
  EXPECT_EQ(FailureOf([] { NativePath("Z:\\in\\a.txt"); }), "76 Path not found ( Z:\\in\\a.txt )");
  EXPECT_EQ(FailureOf([] { NativePath("\\\\s\\t\\a"); }), "76 Path not found ( \\\\s\\t\\a )");
}

TEST(NativePath, NamesTheMissingDrive) {
  const struct {
    const char* path;
    const char* drive;
  } rows[] = {
      {"Z:\\in\\", "Z:"},
      {"c:", "c:"},
      {"c:a.txt", "c:"},
      {"\\\\server\\share\\in\\", "\\\\server\\share"},
      {"\\\\server\\share", "\\\\server\\share"},
      {"\\\\server", "\\\\server"},
      {"//tmp/x", ""},
      {"\\home\\x", ""},
      {"/home/x\\data", ""},
      {"\\\\", ""},
      {"\\\\\\x", ""},
      {"1:\\x", ""},
      {"a", ""},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(MissingDrive(row.path), row.drive) << row.path;
}

}  // namespace
}  // namespace orvenza::test
