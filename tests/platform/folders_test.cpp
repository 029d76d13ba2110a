#include "platform/folders.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/system_seams.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

TEST(SettingsPath, HasBackslashesOnly) {
  EXPECT_EQ(SettingsPath("C:/shop\\data/*.txt"), "C:\\shop\\data\\*.txt");
  EXPECT_EQ(SettingsPath("//server/share/"), "\\\\server\\share\\");
  EXPECT_EQ(SettingsPath("/home\\x\\"), "\\home\\x\\");
  EXPECT_EQ(SettingsPath(""), "");
}

TEST(Folders, RemovesWhatWasLeftHalfWrittenAndNothingElse) {
  const TempFolder folder;
  SystemFolders folders;
  folder.Write("a.txt.orv~", "half");
  folder.Write("a.txt", "x");
  folder.Write("orv~", "x");
  folder.Write("deep\\b.txt.orv~", "x");
  std::filesystem::create_directory(folder.Native("c.orv~"));
  folders.RemoveUnfinished(folder.Path(""));
  folders.RemoveUnfinished(folder.Path("none\\"));
  EXPECT_FALSE(folder.Has("a.txt.orv~"));
  for (const char* name : {"a.txt", "orv~", "deep\\b.txt.orv~", "c.orv~"})
    EXPECT_TRUE(folder.Has(name)) << name;
}

}  // namespace
}  // namespace orvenza::test
