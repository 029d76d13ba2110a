#include "platform/posix/posix_folders.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/as_nobody.h"
#include "platform/failure_of.h"
#include "platform/posix/local_times.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/unfinished_file.h"
#include "platform/time_zone.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

class PosixFoldersTest : public testing::Test {
 protected:
  /// The names that match a mask in the folder, sorted and separated by commas.
  std::string Names(const std::string& mask) const {
    std::vector<std::string> names;
    for (const FolderEntry& entry : folders.ListFolder(folder.Path(mask))) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ",") + name;
    return text;
  }

  FolderEntry Entry(const std::string& name) const {
    const FolderListing listing = folders.ListFolder(folder.Path(name));
    return listing.empty() ? FolderEntry{} : listing.front();
  }

  TempFolder folder;
  PosixFolders folders;
};

TEST_F(PosixFoldersTest, FindsTheRoot) { EXPECT_TRUE(folders.Exists("\\")); }

TEST_F(PosixFoldersTest, AFailedCheckIsNotAMissingFolder) {
  std::filesystem::create_directories(folder.Native("shop\\a"));
  ::chmod(folder.Native("shop").c_str(), 0000);
  const std::string path = folder.Path("shop\\a\\");
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { folders.Exists(path); }); }),
            "70 Permission denied ( " + path + " )");
  EXPECT_EQ(AsNobody([&] { return MayExist(folders, path) ? "perhaps" : "no"; }), "perhaps");
}

TEST_F(PosixFoldersTest, ListsFilesWhoseNamesBeginWithADot) {
  folder.Write(".hidden.txt", "x");
  EXPECT_EQ(Names("*.txt"), ".hidden.txt");
}

TEST_F(PosixFoldersTest, TellsTheAttributesByTheirPositions) {
  const struct {
    const char* name;
    mode_t mode;
    const char* attributes;
  } rows[] = {{"plain", 0644, "      "},
              {"readonly", 0444, " R    "},
              {".dot", 0644, "  H   "},
              {".both", 0400, " RH   "}};
  for (const auto& row : rows) {
    folder.Write(row.name, "x");
    ::chmod(folder.Native(row.name).c_str(), row.mode);
    EXPECT_EQ(Entry(row.name).attributes, row.attributes);
  }
}

TEST_F(PosixFoldersTest, TellsTimesInLocalTime) {
  const TimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
  folder.Write("winter", "x");
  folder.Write("summer", "x");
  folder.SetModified("winter", 1'704'067'199);  // 31 December 2023, 23:59:59 UTC.
  folder.SetModified("summer", 1'719'792'000);  // 1 July 2024, 0:00.
  EXPECT_EQ(Entry("winter").modified, (LocalTime{2024, 1, 1, 0, 59, 59}));
  EXPECT_EQ(Entry("summer").modified, (LocalTime{2024, 7, 1, 2, 0, 0}));
}

TEST_F(PosixFoldersTest, TellsTheThreeTimesApart) {
  const TimeZone zone("UTC0");
  folder.Write("a.txt", "x");
  const timespec times[2] = {{86'400, 0}, {172'800, 0}};
  ::utimensat(AT_FDCWD, folder.Native("a.txt").c_str(), times, 0);
  struct stat status {};
  ::stat(folder.Native("a.txt").c_str(), &status);
  const FolderEntry entry = Entry("a.txt");
  EXPECT_EQ(entry.accessed, (LocalTime{1970, 1, 2, 0, 0, 0}));
  EXPECT_EQ(entry.modified, (LocalTime{1970, 1, 3, 0, 0, 0}));
  EXPECT_EQ(entry.created, LocalTimes().Of(status.st_ctim.tv_sec));
}

TEST_F(PosixFoldersTest, LeavesOutWhatIsNeitherFileNorFolder) {
  ::mkfifo(folder.Native("pipe.txt").c_str(), 0666);
  std::filesystem::create_symlink("/dev/null", folder.Native("device.txt"));
  EXPECT_EQ(Names("*.txt"), "");
}

TEST_F(PosixFoldersTest, LeavesOutLinksThatLeadNowhere) {
  std::filesystem::create_symlink("none", folder.Native("gone.txt"));
  std::filesystem::create_symlink("loop.txt", folder.Native("loop.txt"));
  folder.Write("real.txt", "12345");
  std::filesystem::create_symlink("real.txt", folder.Native("link.txt"));
  EXPECT_EQ(Names("*.txt"), "link.txt,real.txt");
  EXPECT_EQ(Entry("link.txt").size, 5u);
}

TEST_F(PosixFoldersTest, LeavesOutNamesThatNoPathCanReach) {
  std::ofstream(folder.Native("") / "a\\b.txt") << "x";
  EXPECT_EQ(Names("*.txt"), "");
}

TEST_F(PosixFoldersTest, APatternWithoutFolderMeansTheCurrentOne) {
  folder.Write("a.txt", "x");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Native(""));
  const FolderListing listing = folders.ListFolder("*.txt");
  std::filesystem::current_path(before);
  ASSERT_EQ(listing.size(), 1u);
  EXPECT_EQ(listing[0].name, "a.txt");
}

TEST_F(PosixFoldersTest, ReportsAFolderThatCannotBeListed) {
  folder.Write("a.txt", "x");
  const std::string file = folder.Path("a.txt\\");
  EXPECT_EQ(FailureOf([&] { folders.ListFolder(file + "*.*"); }),
            "75 Path/File access error ( " + file + " )");
  EXPECT_EQ(FailureOf([&] { folders.ListFolder("Z:\\*.*"); }), "76 Path not found ( Z:\\*.* )");
}

TEST_F(PosixFoldersTest, ReportsAFolderThatCannotBeMade) {
  folder.Write("a.txt", "x");
  const std::string below = folder.Path("a.txt\\new");
  EXPECT_EQ(FailureOf([&] { folders.Create(below); }), "75 Path/File access error ( " + below + " )");
}

TEST_F(PosixFoldersTest, ReportsAFolderThatCannotBeRenamed) {
  EXPECT_EQ(FailureOf([&] { folders.Rename("/proc/self/", folder.Path("x")); }),
            "75 Path/File access error ( /proc/self/ )");
  EXPECT_EQ(FailureOf([&] { folders.Rename(folder.Path(), "Z:\\x"); }), "76 Path not found ( Z:\\x )");
}

TEST_F(PosixFoldersTest, AFolderThatMayNotBeRenamedIsError75) {
  std::filesystem::create_directories(folder.Native("shop\\a"));
  ::chmod(folder.Native("shop").c_str(), 0555);
  const std::string path = folder.Path("shop\\a\\");
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { folders.Rename(path, folder.Path("shop\\b")); }); }),
            "75 Path/File access error ( " + path + " )");
}

TEST_F(PosixFoldersTest, AFolderThatMayNotBeListedIsError70) {
  std::filesystem::create_directory(folder.Native("shop"));
  ::chmod(folder.Native("shop").c_str(), 0000);
  const std::string path = folder.Path("shop\\");
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { folders.ListFolder(path + "*.*"); }); }),
            "70 Permission denied ( " + path + " )");
}

TEST_F(PosixFoldersTest, FilesThatCannotBeCheckedAreReported) {
  folder.Write("shop\\a.txt", "x");
  ::chmod(folder.Native("shop").c_str(), 0444);
  const std::string path = folder.Path("shop\\");
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { folders.ListFolder(path + "*.*"); }); }),
            "70 Permission denied ( " + path + " )");
}

TEST_F(PosixFoldersTest, KnowsMissingDrives) {
  EXPECT_EQ(folders.DriveOf("\\\\server\\share\\in\\"), "\\\\server\\share");
  EXPECT_FALSE(folders.DriveAvailable("\\\\server\\share\\in\\"));
  EXPECT_EQ(folders.DriveOf(folder.Path()), "");
  EXPECT_TRUE(folders.DriveAvailable(folder.Path()));
}

TEST(LocalTimes, AgreeWithTheSystemAroundChangesOfTheOffset) {
  for (const char* name :
       {"CET-1CEST,M3.5.0,M10.5.0/3", "NST3:30NDT,M3.2.0,M11.1.0", "UTC0", "AAA-14", "YYY+12"}) {
    const TimeZone zone(name);
    LocalTimes times;
    for (std::time_t seconds = 1'711'756'800; seconds < 1'735'689'600; seconds += 1'799) {
      std::tm calendar{};
      ::localtime_r(&seconds, &calendar);
      ASSERT_EQ(times.Of(seconds), FromCalendar(calendar)) << name << " " << seconds;
    }
  }
}

TEST(LocalTimes, KnowTimesBefore1970) {
  const TimeZone zone("UTC0");
  EXPECT_EQ(LocalTimes().Of(-1), (LocalTime{1969, 12, 31, 23, 59, 59}));
  EXPECT_EQ(LocalTimes().Of(-86'400), (LocalTime{1969, 12, 31, 0, 0, 0}));
}

TEST(LocalTimes, StayWithinFourDigitYears) {
  const TimeZone zone("UTC0");
  EXPECT_EQ(LocalTimes().Of(INT64_MAX), (LocalTime{9998, 12, 31, 0, 0, 0}));
  EXPECT_EQ(LocalTimes().Of(INT64_MIN), (LocalTime{2, 1, 1, 0, 0, 0}));
}

}  // namespace
}  // namespace orvenza::test
