#include "platform/folders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/failure_of.h"
#include "platform/test_disk.h"

// The common behaviour of all implementations of `Folders`.

namespace orvenza::test {
namespace {

TEST(SettingsPath, HasBackslashesOnly) {
  EXPECT_EQ(SettingsPath("C:/shop\\data/*.txt"), "C:\\shop\\data\\*.txt");
  EXPECT_EQ(SettingsPath("//server/share/"), "\\\\server\\share\\");
  EXPECT_EQ(SettingsPath("/home\\x\\"), "\\home\\x\\");
  EXPECT_EQ(SettingsPath(""), "");
}

class FoldersTest : public testing::TestWithParam<DiskKind> {
 protected:
  std::string Path(const std::string& relative) const { return disk->Path(relative); }

  /// The names that match a mask in the folder, sorted and separated by commas.
  std::string Listed(const std::string& mask) const {
    std::vector<std::string> names;
    for (const FolderEntry& entry : folders.ListFolder(Path(mask))) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ",") + name;
    return text;
  }

  FolderEntry Entry(const std::string& name) const {
    const FolderListing listing = folders.ListFolder(Path(name));
    return listing.empty() ? FolderEntry{} : listing.front();
  }

  std::unique_ptr<TestDisk> disk = GetParam().make();
  Folders& folders = disk->FolderSeam();
};

INSTANTIATE_TEST_SUITE_P(Disks, FoldersTest, AllDisks(), NameOfDisk);

TEST_P(FoldersTest, FindsFoldersButNotFiles) {
  disk->Write("data\\a.txt", "x");
  EXPECT_TRUE(folders.Exists(Path("data")));
  EXPECT_TRUE(folders.Exists(Path("data\\")));
  EXPECT_FALSE(folders.Exists(Path("data\\a.txt")));
  EXPECT_FALSE(folders.Exists(Path("none")));
  EXPECT_FALSE(folders.Exists(""));
  EXPECT_FALSE(folders.Exists("Q:\\"));
}

TEST_P(FoldersTest, ListsWhatTheMaskNames) {
  for (const char* name : {"a.txt", "B.TXT", "c.dat", "noext", "d.txt2", "sub\\x.txt"}) {
    disk->Write(name, "x");
  }
  const struct {
    const char* mask;
    const char* names;
  } rows[] = {
      {"*.txt", "B.TXT,a.txt"},
      {"*.*", "B.TXT,a.txt,c.dat,d.txt2,noext,sub"},
      {"?.*", "B.TXT,a.txt,c.dat,d.txt2"},
      {"SUB*", "sub"},
      {"sub\\*.txt", "x.txt"},
      {"none*", ""},
      {"", ""},
      {"A.TXT", "a.txt"},
  };
  for (const auto& row : rows) EXPECT_EQ(Listed(row.mask), row.names) << row.mask;
}

TEST_P(FoldersTest, TellsSizeAndKind) {
  disk->Write("a.txt", "12345");
  disk->Write("sub\\x.txt", "x");
  EXPECT_EQ(Entry("a.txt").size, 5u);
  EXPECT_FALSE(Entry("a.txt").isFolder);
  EXPECT_EQ(Entry("sub").size, 0u);
  EXPECT_TRUE(Entry("sub").isFolder);
}

TEST_P(FoldersTest, TellsWhichFilesAreReadOnly) {
  disk->Write("a.txt", "x");
  disk->Write("b.txt", "x");
  disk->SetReadOnly("b.txt");
  EXPECT_EQ(Entry("a.txt").attributes.substr(1), "     ");
  EXPECT_EQ(Entry("b.txt").attributes.substr(1), "R    ");
}

TEST_P(FoldersTest, HidesFilesBeingWritten) {
  disk->Write("a.txt.orv~", "half");
  disk->Write("a.txt", "x");
  EXPECT_EQ(Listed("*.*"), "a.txt");
  EXPECT_EQ(Listed("*.orv~"), "");
}

TEST_P(FoldersTest, RemovesWhatWasLeftHalfWrittenAndNothingElse) {
  for (const char* name : {"a.txt.orv~", "a.txt", "orv~", "deep\\b.txt.orv~"}) disk->Write(name, "x");
  disk->MakeFolder("c.orv~");
  folders.RemoveUnfinished(Path(""));
  folders.RemoveUnfinished(Path("none\\"));
  EXPECT_EQ(disk->Names(), "a.txt,orv~");
  EXPECT_EQ(disk->Read("deep\\b.txt.orv~"), "x");
  EXPECT_TRUE(folders.Exists(Path("c.orv~")));
}

TEST_P(FoldersTest, ReportsAFolderThatCannotBeListed) {
  const std::string missing = Path("none\\");
  EXPECT_EQ(FailureOf([&] { folders.ListFolder(missing + "*.*"); }), "76 Path not found ( " + missing + " )");
  EXPECT_EQ(FailureOf([&] { folders.ListFolder("Q:\\*.*"); }).substr(0, 17), "76 Path not found");
  EXPECT_EQ(FailureOf([&] { folders.ListFolder(""); }), "52 Bad file name or number");
}

TEST_P(FoldersTest, MakesOneLevel) {
  folders.Create(Path("new\\"));
  EXPECT_TRUE(folders.Exists(Path("new")));
}

TEST_P(FoldersTest, ReportsAFolderThatCannotBeMade) {
  disk->MakeFolder("sub");
  const std::string there = Path("sub");
  const std::string deep = Path("none\\new");
  EXPECT_EQ(FailureOf([&] { folders.Create(there); }), "58 File already exists ( " + there + " )");
  EXPECT_EQ(FailureOf([&] { folders.Create(deep); }), "76 Path not found ( " + deep + " )");
  EXPECT_EQ(FailureOf([&] { folders.Create("Q:\\x"); }), "76 Path not found ( Q:\\x )");
}

TEST_P(FoldersTest, RenamesAFolderWithAllInIt) {
  disk->Write("storico\\1.txt", "x");
  folders.Rename(Path("storico\\"), Path("storico_20240303\\"));
  EXPECT_FALSE(folders.Exists(Path("storico")));
  EXPECT_EQ(disk->Read("storico_20240303\\1.txt"), "x");
}

TEST_P(FoldersTest, DoesNotRenameOverAnotherFolder) {
  disk->Write("a\\1.txt", "x");
  disk->MakeFolder("b");
  const std::string target = Path("b\\");
  EXPECT_EQ(FailureOf([&] { folders.Rename(Path("a\\"), target); }),
            "58 File already exists ( " + target + " )");
  EXPECT_EQ(disk->Read("a\\1.txt"), "x");
}

TEST_P(FoldersTest, DoesNotRenameWhatIsNoFolder) {
  disk->Write("a.txt", "x");
  for (const char* name : {"none", "a.txt"}) {
    const std::string path = Path(name);
    EXPECT_EQ(FailureOf([&] { folders.Rename(path, Path("b")); }), "76 Path not found ( " + path + " )");
  }
  EXPECT_EQ(disk->Names(), "a.txt");
}

TEST_P(FoldersTest, KnowsWhichDrivesCanBeUsed) {
  EXPECT_EQ(folders.DriveOf("Q:\\in\\"), "Q:");
  EXPECT_FALSE(folders.DriveAvailable("Q:\\in\\"));
  EXPECT_TRUE(folders.DriveAvailable(Path("none\\")));
  EXPECT_EQ(folders.DriveOf("\\storico\\"), "");
  EXPECT_TRUE(folders.DriveAvailable("\\storico\\"));
}

}  // namespace
}  // namespace orvenza::test
