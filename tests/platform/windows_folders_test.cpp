#include "platform/windows/windows_folders.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "platform/failure_of.h"
#include "platform/windows/local_times.h"
#include "platform/windows/unfinished_file.h"
#include "platform/windows/wide.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

class WindowsFoldersTest : public testing::Test {
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

  /// Sets the three times of a file, in seconds since the start of 2020, UTC.
  void SetTimes(const std::string& name, std::uint64_t created, std::uint64_t accessed,
                std::uint64_t modified) const {
    const FileHandle file(::CreateFileW(ToWide(folder.Path(name)).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
    const FILETIME times[] = {At(created), At(accessed), At(modified)};
    EXPECT_TRUE(::SetFileTime(file.Get(), &times[0], &times[1], &times[2]));
  }

  static FILETIME At(std::uint64_t secondsOf2020) {
    const std::uint64_t ticks = (13'222'310'400u + secondsOf2020) * 10'000'000u;  // Since 1601.
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  }

  TempFolder folder;
  WindowsFolders folders;
};

TEST_F(WindowsFoldersTest, FindsFoldersInAnyLetterCaseAndTheRootOfADrive) {
  folder.Write("data\\a.txt", "x");
  EXPECT_TRUE(folders.Exists(folder.Path("DATA\\")));
  EXPECT_TRUE(folders.Exists("C:\\"));
}

TEST_F(WindowsFoldersTest, ShortNamesDoNotMatch) {
  folder.Write("a long name.textual", "x");  // Its short name ends in ".TEX".
  EXPECT_EQ(Names("*.tex"), "");
  EXPECT_EQ(Names("alongn~1*"), "");
}

TEST_F(WindowsFoldersTest, ListsNamesWithAccents) {
  UnfinishedFile(folder.Path("caffè €.txt")).Finish();
  EXPECT_EQ(Names("*.txt"), "caffè €.txt");
  EXPECT_EQ(Names("caffè*"), "caffè €.txt");
}

TEST_F(WindowsFoldersTest, TellsTheAttributesByTheirPositions) {
  const struct {
    const char* name;
    DWORD set;
    const char* attributes;
  } rows[] = {{"readonly", FILE_ATTRIBUTE_READONLY, " R    "},
              {"hidden", FILE_ATTRIBUTE_HIDDEN, "  H   "},
              {"both", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY, " RH   "},
              {"system", FILE_ATTRIBUTE_SYSTEM, "   S  "}};
  for (const auto& row : rows) {
    folder.Write(row.name, "x");
    ::SetFileAttributesW(ToWide(folder.Path(row.name)).c_str(), row.set);
    std::string attributes = Entry(row.name).attributes;
    ASSERT_EQ(attributes.size(), 6u);
    attributes[0] = ' ';  // Some file systems do not keep the archive attribute.
    EXPECT_EQ(attributes, row.attributes);
  }
}

TEST_F(WindowsFoldersTest, TellsTheThreeTimesApartInLocalTime) {
  folder.Write("a.txt", "x");
  SetTimes("a.txt", 86'400, 172'800, 259'261);
  const FolderEntry entry = Entry("a.txt");
  EXPECT_EQ(entry.accessed, FromFileTime(At(172'800)));
  EXPECT_EQ(entry.modified, FromFileTime(At(259'261)));
}

TEST(FileTimes, BecomeLocalByTodaysOffset) {
  SYSTEMTIME calendar{};
  calendar.wYear = 2020;
  calendar.wMonth = 7;
  calendar.wDay = 1;
  calendar.wHour = 13;
  FILETIME local{};
  FILETIME universal{};
  ASSERT_TRUE(::SystemTimeToFileTime(&calendar, &local));
  ASSERT_TRUE(::LocalFileTimeToFileTime(&local, &universal));
  EXPECT_EQ(FromFileTime(universal), (LocalTime{2020, 7, 1, 13, 0, 0}));
}

TEST_F(WindowsFoldersTest, APatternWithoutFolderMeansTheCurrentOne) {
  folder.Write("a.txt", "x");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Native(""));
  const FolderListing listing = folders.ListFolder("*.txt");
  std::filesystem::current_path(before);
  ASSERT_EQ(listing.size(), 1u);
  EXPECT_EQ(listing[0].name, "a.txt");
}

TEST_F(WindowsFoldersTest, ReportsADriveThatCannotBeListed) {
  EXPECT_EQ(FailureOf([&] { folders.ListFolder("Q:\\*.*"); }), "76 Path not found ( Q:\\ )");
}

TEST_F(WindowsFoldersTest, ReportsAFolderThatCannotBeMade) {
  const std::string bad = folder.Path("a?b");
  EXPECT_EQ(FailureOf([&] { folders.Create(bad); }), "52 Bad file name or number ( " + bad + " )");
}

TEST_F(WindowsFoldersTest, AFolderInUseIsError75) {
  folder.Write("storico\\1.txt", "x");
  const std::string path = folder.Path("storico\\");
  const FileHandle holder(::CreateFileW(ToWide(folder.Path("storico")).c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  ASSERT_TRUE(holder.Valid());
  EXPECT_EQ(FailureOf([&] { folders.Rename(path, folder.Path("b\\")); }),
            "75 Path/File access error ( " + path + " )");
  EXPECT_TRUE(folder.Has("storico\\1.txt"));
}

TEST_F(WindowsFoldersTest, KnowsTheSystemsDriveInAnyFolder) {
  EXPECT_EQ(folders.DriveOf("c:\\none\\"), "c:");
  EXPECT_TRUE(folders.DriveAvailable("c:\\none\\"));
}

}  // namespace
}  // namespace orvenza::test
