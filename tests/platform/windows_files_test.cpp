#include "platform/windows/windows_files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/failure_of.h"
#include "platform/windows/unfinished_file.h"
#include "platform/windows/wide.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Another program's open file.
FileHandle Held(const std::string& path, DWORD access, DWORD sharing) {
  return FileHandle(::CreateFileW(ToWide(path).c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
}

DWORD AttributesOf(const std::string& path) { return ::GetFileAttributesW(ToWide(path).c_str()); }

void SetAttributes(const std::string& path, DWORD attributes) {
  EXPECT_TRUE(::SetFileAttributesW(ToWide(path).c_str(), attributes));
}

class WindowsFilesTest : public testing::Test {
 protected:
  std::string ReadAll(const std::string& path) {
    const auto reader = files.OpenForReading(path);
    std::string text;
    char piece[3];
    while (const std::size_t count = reader->Read(piece, sizeof piece)) text.append(piece, count);
    return text;
  }

  std::ptrdiff_t EntryCount() const {
    const std::filesystem::directory_iterator entries(folder.Native(""));
    return std::distance(begin(entries), end(entries));
  }

  TempFolder folder;
  WindowsFiles files;
};

TEST_F(WindowsFilesTest, FindsFilesInAnyLetterCase) {
  folder.Write("data\\a.txt", "x");
  EXPECT_TRUE(files.Exists(folder.Path("DATA\\A.TXT")));
}

TEST_F(WindowsFilesTest, AppendsWhileAnotherProgramLooksAtTheFile) {
  folder.Write("Log.txt", "one\r\n");
  const FileHandle viewer = Held(folder.Path("Log.txt"), GENERIC_READ, kShareAll);
  files.Append(folder.Path("Log.txt"), "two\r\n");
  EXPECT_EQ(folder.Read("Log.txt"), "one\r\ntwo\r\n");
}

TEST_F(WindowsFilesTest, AppendsWhileAnOnlookerReads) {
  folder.Write("Log.txt", "one\r\n");
  const auto reader = WindowsFiles(WhileRead::kEverything).OpenForReading(folder.Path("Log.txt"));
  files.Append(folder.Path("Log.txt"), "two\r\n");
  EXPECT_EQ(folder.Read("Log.txt"), "one\r\ntwo\r\n");
}

TEST_F(WindowsFilesTest, AnOnlookerReadsAFileStillBeingWritten) {
  folder.Write("a.txt", "half");
  const FileHandle host = Held(folder.Path("a.txt"), GENERIC_WRITE, kShareAll);
  EXPECT_EQ(ReadWhole(WindowsFiles(WhileRead::kEverything), folder.Path("a.txt")), "half");
}

TEST_F(WindowsFilesTest, WritesNamesWithAccents) {
  const std::string path = folder.Path("caffè €.txt");
  files.Write(path, "new");
  EXPECT_EQ(::GetFileAttributesW(ToWide(path).c_str()), DWORD{FILE_ATTRIBUTE_ARCHIVE});
  EXPECT_EQ(ReadAll(path), "new");
}

TEST_F(WindowsFilesTest, WritesTheLongestName) {
  const std::string path = "\\\\?\\" + folder.Path(std::string(255, 'n'));
  files.Write(path, "new");
  EXPECT_EQ(ReadAll(path), "new");
  files.Remove(path);
}

TEST_F(WindowsFilesTest, CopiesWithTheModificationTime) {
  folder.Write("a.txt", "ticket");
  folder.SetModified("a.txt", 1'700'000'000);
  folder.Write("b.txt", "older target");
  files.Copy(folder.Path("a.txt"), folder.Path("b.txt"));
  EXPECT_EQ(folder.Read("b.txt"), "ticket");
  EXPECT_EQ(std::filesystem::last_write_time(folder.Native("b.txt")),
            std::filesystem::last_write_time(folder.Native("a.txt")));
  EXPECT_EQ(EntryCount(), 2);
}

TEST_F(WindowsFilesTest, GivesAFileTheModificationTimeOfAnother) {
  folder.Write("a.txt", "ticket");
  folder.SetModified("a.txt", 1'700'000'000);
  folder.Write("b.txt", "request");
  files.CopyModified(folder.Path("a.txt"), folder.Path("b.txt"));
  EXPECT_EQ(std::filesystem::last_write_time(folder.Native("b.txt")),
            std::filesystem::last_write_time(folder.Native("a.txt")));
  EXPECT_EQ(folder.Read("b.txt"), "request");
  const std::string none = folder.Path("none.txt");
  const std::string notFound = "53 File not found ( " + none + " )";
  EXPECT_EQ(FailureOf([&] { files.CopyModified(none, folder.Path("b.txt")); }), notFound);
  EXPECT_EQ(FailureOf([&] { files.CopyModified(folder.Path("a.txt"), none); }), notFound);
}

TEST_F(WindowsFilesTest, ACopyOfAReadOnlyFileIsWritable) {
  folder.Write("a.txt", "ticket");
  SetAttributes(folder.Path("a.txt"), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  files.Copy(folder.Path("a.txt"), folder.Path("b.txt"));
  EXPECT_EQ(AttributesOf(folder.Path("b.txt")), DWORD{FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(WindowsFilesTest, ClearsAllAttributes) {
  folder.Write("a.txt", "x");
  const std::string path = folder.Path("a.txt");
  SetAttributes(path, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  files.ClearAttributes(path);
  constexpr DWORD kHard = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  EXPECT_EQ(AttributesOf(path) & kHard, 0u);
  files.Remove(path);
  EXPECT_FALSE(folder.Has("a.txt"));
}

TEST_F(WindowsFilesTest, AFileStillBeingWrittenIsError70) {
  folder.Write("a.txt", "half");
  const std::string path = folder.Path("a.txt");
  const FileHandle host = Held(path, GENERIC_WRITE, kShareAll);
  const std::string expected = "70 Permission denied ( " + path + " )";
  EXPECT_EQ(FailureOf([&] { files.OpenForReading(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Copy(path, folder.Path("b.txt")); }), expected);
  EXPECT_EQ(EntryCount(), 1);
}

TEST_F(WindowsFilesTest, AFileThatAnotherProgramHoldsIsError70) {
  folder.Write("a.txt", "x");
  const std::string path = folder.Path("a.txt");
  const FileHandle holder = Held(path, GENERIC_READ, FILE_SHARE_READ);
  const std::string expected = "70 Permission denied ( " + path + " )";
  EXPECT_EQ(FailureOf([&] { files.Append(path, "y"); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Move(path, folder.Path("b.txt")); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Remove(path); }), expected);
  EXPECT_EQ(folder.Read("a.txt"), "x");
}

TEST_F(WindowsFilesTest, AReadOnlyFileIsNotRemoved) {
  folder.Write("a.txt", "x");
  const std::string path = folder.Path("a.txt");
  SetAttributes(path, FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(FailureOf([&] { files.Remove(path); }), "75 Path/File access error ( " + path + " )");
  EXPECT_EQ(folder.Read("a.txt"), "x");
}

TEST_F(WindowsFilesTest, AWriteThatFailsLeavesTheOldFile) {
  folder.Write("a.txt", "old");
  const std::string path = folder.Path("a.txt");
  const FileHandle holder = Held(path, GENERIC_READ, FILE_SHARE_READ);
  EXPECT_NE(FailureOf([&] { files.Write(path, "new"); }), "no failure");
  EXPECT_EQ(folder.Read("a.txt"), "old");
  EXPECT_EQ(EntryCount(), 1);
}

TEST_F(WindowsFilesTest, AnUnfinishedFileIsNotUnderItsName) {
  {
    UnfinishedFile file(folder.Path("a.txt"));
    file.Add("half");
    EXPECT_TRUE(folder.Has("a.txt.orv~"));
    EXPECT_FALSE(folder.Has("a.txt"));
  }
  EXPECT_EQ(EntryCount(), 0);
}

TEST_F(WindowsFilesTest, ANameThatTheSystemRefusesIsError52) {
  const std::string path = folder.Path("a?b.txt");
  const std::string expected = "52 Bad file name or number ( " + path + " )";
  EXPECT_EQ(FailureOf([&] { files.Size(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.OpenForReading(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Append(path, "x"); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Write(path, "x"); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Remove(path); }), expected);
}

TEST_F(WindowsFilesTest, ADeviceIsNotRead) {
  EXPECT_EQ(FailureOf([&] { files.OpenForReading("NUL"); }), "75 Path/File access error ( NUL )");
  EXPECT_EQ(FailureOf([&] { files.Copy("NUL", folder.Path("b.txt")); }), "75 Path/File access error ( NUL )");
}

}  // namespace
}  // namespace orvenza::test
