// Paths longer than the system's file functions accept in their plain form.

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/windows_files.h"
#include "platform/windows/windows_folders.h"
#include "platform/windows/windows_paths.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// Two nested folders with names of 120 characters each, so that paths inside exceed the ordinary limit.
class LongPathsTest : public testing::Test {
 protected:
  LongPathsTest() {
    folders.Create(outer);
    folders.Create(deep);
  }
  ~LongPathsTest() override {
    for (const std::string& name : {deep, outer}) ::RemoveDirectoryW(NativeFolderPath(name).c_str());
  }

  std::string Names() const {
    std::string names;
    for (const FolderEntry& entry : folders.ListFolder(deep + "*.txt")) names += entry.name + ";";
    return names;
  }

  TempFolder folder;
  WindowsFiles files;
  WindowsFolders folders;
  const std::string outer = folder.Path(std::string(120, 'o')) + "\\";
  const std::string deep = outer + std::string(120, 'd') + "\\";
};

TEST_F(LongPathsTest, FilesAreWrittenReadMovedAndRemoved) {
  EXPECT_TRUE(folders.Exists(deep));
  files.Write(deep + "a.txt", "abc");
  files.Append(deep + "a.txt", "d");
  EXPECT_EQ(ReadWhole(files, deep + "a.txt"), "abcd");
  EXPECT_EQ(files.Size(deep + "a.txt"), 4u);
  files.Copy(deep + "a.txt", deep + "b.txt");
  files.Move(deep + "a.txt", folder.Path("c.txt"));
  EXPECT_EQ(Names(), "b.txt;");
  EXPECT_EQ(folder.Read("c.txt"), "abcd");
  RemoveReadOnlyToo(files, deep + "b.txt");
  EXPECT_EQ(Names(), "");
}

TEST_F(LongPathsTest, AreTidiedUpAsShortOnesAre) {
  files.Write(deep + "..\\" + std::string(120, 'D') + "\\.//a.txt", "abc");
  EXPECT_EQ(Names(), "a.txt;");
  files.Remove(deep + "a.txt");
}

TEST_F(LongPathsTest, FoldersAreRenamed) {
  const std::string renamed = outer + std::string(121, 'r');
  folders.Rename(deep, renamed);
  EXPECT_FALSE(folders.Exists(deep));
  EXPECT_TRUE(folders.Exists(renamed));
  folders.Rename(renamed, deep);
}

TEST(NativePath, TakesThePlainFormUpTo247CharactersOnly) {
  const std::string shortName(244, 'x');
  EXPECT_EQ(NativePath("C:\\" + shortName), L"C:\\" + std::wstring(244, L'x'));
  EXPECT_EQ(NativePath("C:\\" + shortName + "x"), L"\\\\?\\C:\\" + std::wstring(245, L'x'));
  EXPECT_EQ(NativePath("C:/" + shortName + "/y"), L"\\\\?\\C:\\" + std::wstring(244, L'x') + L"\\y");
  EXPECT_EQ(NativePath("//server/share/" + shortName),
            L"\\\\?\\UNC\\server\\share\\" + std::wstring(244, L'x'));
  EXPECT_EQ(NativePath("\\\\?\\C:\\" + shortName), L"\\\\?\\C:\\" + std::wstring(244, L'x'));
}

}  // namespace
}  // namespace orvenza::test
