#include "platform/files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/failure_of.h"
#include "platform/test_disk.h"

// The common behaviour of all implementations of `Files`.

namespace orvenza::test {
namespace {

class FilesTest : public testing::TestWithParam<DiskKind> {
 protected:
  std::string Path(const std::string& relative) const { return disk->Path(relative); }

  /// The modification time, to the second.
  LocalTime Modified(const std::string& name) const {
    const FolderListing listing = disk->FolderSeam().ListFolder(Path(name));
    return listing.empty() ? LocalTime{} : listing.front().modified;
  }

  std::unique_ptr<TestDisk> disk = GetParam().make();
  Files& files = disk->FileSeam();
};

INSTANTIATE_TEST_SUITE_P(Disks, FilesTest, AllDisks(), NameOfDisk);

TEST_P(FilesTest, FindsFilesButNotFolders) {
  disk->Write("data\\a.txt", "x");
  EXPECT_TRUE(files.Exists(Path("data\\a.txt")));
  EXPECT_FALSE(files.Exists(Path("data")));
  EXPECT_FALSE(files.Exists(Path("data\\b.txt")));
  EXPECT_FALSE(files.Exists(""));
  EXPECT_FALSE(files.Exists(Path("data\\a.txt") + std::string(1, '\0')));
  EXPECT_FALSE(files.Exists("Q:\\a.txt"));
}

TEST_P(FilesTest, TellsTheSize) {
  disk->Write("a.txt", "12345");
  EXPECT_EQ(files.Size(Path("a.txt")), 5u);
}

TEST_P(FilesTest, ReadsBytesAsTheyStand) {
  const std::string content("a\0\r\n\x1A\xE0z", 7);
  disk->Write("a.txt", content);
  const auto reader = files.OpenForReading(Path("a.txt"));
  std::string read;
  char piece[3];
  while (const std::size_t count = reader->Read(piece, sizeof piece)) read.append(piece, count);
  EXPECT_EQ(read, content);
}

TEST_P(FilesTest, AppendsAndCreates) {
  files.Append(Path("Log.txt"), "one\r\n");
  files.Append(Path("Log.txt"), "two\r\n");
  EXPECT_EQ(disk->Read("Log.txt"), "one\r\ntwo\r\n");
}

TEST_P(FilesTest, WritesAFileAnew) {
  disk->Write("a.txt", "something longer");
  files.Write(Path("a.txt"), "new");
  EXPECT_EQ(disk->Read("a.txt"), "new");
  EXPECT_EQ(disk->Names(), "a.txt");
}

TEST_P(FilesTest, WritesOverWhatACrashLeft) {
  disk->Write("a.txt.orv~", "half of some");
  files.Write(Path("a.txt"), "new");
  EXPECT_EQ(disk->Read("a.txt"), "new");
  EXPECT_EQ(disk->Names(), "a.txt");
}

TEST_P(FilesTest, CopiesWithTheModificationTime) {
  disk->Write("a.txt", "ticket");
  disk->SetModified("a.txt", 1'700'000'000);
  disk->Write("b.txt", "older target");
  files.Copy(Path("a.txt"), Path("b.txt"));
  EXPECT_EQ(disk->Read("b.txt"), "ticket");
  EXPECT_EQ(Modified("b.txt"), Modified("a.txt"));
  EXPECT_EQ(Modified("b.txt").year, 2023);
  EXPECT_EQ(disk->Names(), "a.txt,b.txt");
}

TEST_P(FilesTest, CopiesALargeFileWhole) {
  const std::string content(100'001, 'x');
  disk->Write("a.txt", content);
  files.Copy(Path("a.txt"), Path("b.txt"));
  EXPECT_EQ(disk->Read("b.txt"), content);
}

TEST_P(FilesTest, ACopyOfAReadOnlyFileIsWritable) {
  disk->Write("a.txt", "ticket");
  disk->SetReadOnly("a.txt");
  files.Copy(Path("a.txt"), Path("b.txt"));
  files.Write(Path("b.txt"), "new");
  EXPECT_EQ(disk->Read("b.txt"), "new");
}

TEST_P(FilesTest, GivesAFileTheModificationTimeOfAnother) {
  disk->Write("a.txt", "ticket");
  disk->SetModified("a.txt", 1'700'000'000);
  disk->Write("b.txt", "request");
  files.CopyModified(Path("a.txt"), Path("b.txt"));
  EXPECT_EQ(Modified("b.txt"), Modified("a.txt"));
  EXPECT_EQ(Modified("b.txt").year, 2023);
  EXPECT_EQ(disk->Read("b.txt"), "request");
  const std::string none = Path("none.txt");
  const std::string notFound = "53 File not found ( " + none + " )";
  EXPECT_EQ(FailureOf([&] { files.CopyModified(none, Path("b.txt")); }), notFound);
  EXPECT_EQ(FailureOf([&] { files.CopyModified(Path("a.txt"), none); }), notFound);
}

TEST_P(FilesTest, MovesAFileOverAnOlderOneWithItsContentAndTime) {
  disk->Write("a.txt", "new");
  disk->SetModified("a.txt", 1'700'000'000);
  disk->Write("sub\\b.txt", "something older");
  files.Move(Path("a.txt"), Path("sub\\b.txt"));
  EXPECT_EQ(disk->Names(), "");
  EXPECT_EQ(disk->Read("sub\\b.txt"), "new");
  EXPECT_EQ(Modified("sub\\b.txt").year, 2023);
}

TEST_P(FilesTest, AMoveThatFailsSaysWhyAndLeavesTheFile) {
  disk->Write("a.txt", "x");
  const std::string a = Path("a.txt");
  const std::string missing = Path("b.txt");
  const std::string nowhere = Path("none\\b.txt");
  EXPECT_EQ(FailureOf([&] { files.Move(missing, a); }), "53 File not found ( " + missing + " )");
  EXPECT_EQ(FailureOf([&] { files.Move(nowhere, a); }), "76 Path not found ( " + nowhere + " )");
  EXPECT_EQ(FailureOf([&] { files.Move(a, nowhere); }), "76 Path not found ( " + nowhere + " )");
  EXPECT_EQ(disk->Read("a.txt"), "x");
}

TEST_P(FilesTest, RemovesAFile) {
  disk->Write("a.txt", "x");
  files.Remove(Path("a.txt"));
  EXPECT_EQ(disk->Names(), "");
}

TEST_P(FilesTest, AReadOnlyFileWhoseAttributesAreClearedCanBeWrittenAndRemoved) {
  disk->Write("a.txt", "x");
  disk->SetReadOnly("a.txt");
  files.ClearAttributes(Path("a.txt"));
  files.Append(Path("a.txt"), "y");
  EXPECT_EQ(disk->Read("a.txt"), "xy");
  files.Remove(Path("a.txt"));
  EXPECT_EQ(disk->Names(), "");
}

TEST_P(FilesTest, EveryOperationReportsABadPath) {
  disk->Write("a.txt", "x");
  const std::string good = Path("a.txt");
  const std::string inMissingFolder = Path("none\\b.txt");
  const struct {
    std::string path;
    std::string failure;
  } rows[] = {
      {inMissingFolder, "76 Path not found ( " + inMissingFolder + " )"},
      {"Q:\\a.txt", "76 Path not found ( Q:\\a.txt )"},
      {"", "52 Bad file name or number"},
      {std::string("a\0b", 3), "52 Bad file name or number ( a )"},
  };
  for (const auto& row : rows) {
    const std::string& path = row.path;
    const std::string& failure = row.failure;
    EXPECT_EQ(FailureOf([&] { files.Size(path); }), failure);
    EXPECT_EQ(FailureOf([&] { files.OpenForReading(path); }), failure);
    EXPECT_EQ(FailureOf([&] { files.Append(path, "x"); }), failure);
    EXPECT_EQ(FailureOf([&] { files.Write(path, "x"); }), failure);
    EXPECT_EQ(FailureOf([&] { files.Copy(path, good + ".2"); }), failure);
    EXPECT_EQ(FailureOf([&] { files.Copy(good, path); }), failure);
    EXPECT_EQ(FailureOf([&] { files.Move(path, good + ".2"); }), failure);
    EXPECT_EQ(FailureOf([&] { files.Remove(path); }), failure);
    EXPECT_EQ(FailureOf([&] { files.ClearAttributes(path); }), failure);
  }
}

TEST_P(FilesTest, AMissingFileIsError53) {
  const std::string path = Path("a.txt");
  const std::string expected = "53 File not found ( " + path + " )";
  EXPECT_EQ(FailureOf([&] { files.Size(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.OpenForReading(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Copy(path, Path("b.txt")); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Move(path, Path("b.txt")); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Remove(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.ClearAttributes(path); }), expected);
}

TEST_P(FilesTest, AFolderIsNoFile) {
  disk->MakeFolder("sub");
  const std::string path = Path("sub");
  const std::string expected = "75 Path/File access error ( " + path + " )";
  EXPECT_EQ(FailureOf([&] { files.Size(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.OpenForReading(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Append(path, "x"); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Write(path, "x"); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Remove(path); }), expected);
}

}  // namespace
}  // namespace orvenza::test
