#include "core/create_all_dirs.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "platform/system_error.h"
#include "simulator/virtual_clock.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using Paths = std::vector<std::string>;

std::string WithoutEnd(std::string path) {
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

/// Folders on the drives C: and \\server\share.
class DriveFolders : public Folders {
 public:
  std::set<std::string> folders;
  std::set<std::string> filesInTheWay;
  Paths created;
  std::string unseen;  ///< A folder that cannot be checked.

  bool Exists(const std::string& path) const override {
    const std::string name = WithoutEnd(path);
    if (!unseen.empty() && name == unseen) throw SystemError(error_number::kDeviceError, path);
    return folders.count(name) > 0 || (!name.empty() && name == DriveOf(name));
  }
  FolderListing ListFolder(const std::string&) const override { return {}; }
  void RemoveUnfinished(const std::string&) override {}
  void Create(const std::string& path) override {
    if (DriveOf(path).empty() && path.find(':') != std::string::npos) throw SystemError(76, path);
    if (Exists(path) || filesInTheWay.count(path) > 0) throw SystemError(75, path);
    const std::size_t parentEnd = path.rfind('\\');
    const bool hasParent = parentEnd != std::string::npos;
    if (hasParent && !Exists(path.substr(0, parentEnd))) throw SystemError(76, path);
    folders.insert(path);
    created.push_back(path);
  }
  void Rename(const std::string&, const std::string&) override {}
  std::string DriveOf(const std::string& path) const override {
    for (const char* drive : {"C:", "\\\\server\\share"}) {
      if (path.starts_with(drive)) return drive;
    }
    return {};
  }
  bool DriveAvailable(const std::string& path) const override { return !DriveOf(path).empty(); }
};

class CreateAllDirsTest : public ::testing::Test {
 protected:
  CreateAllDirsTest() { paths.ErrPath = "Err.txt"; }

  bool Create(const std::string& path) { return CreateAllDirs(folders, logs, path); }

  VirtualClock clock{{2026, 11, 15, 13, 45, 10}};
  MemoryFiles files;
  LogPaths paths;
  Logs logs{files, clock, paths, "C:\\shop"};
  DriveFolders folders;
};

TEST_F(CreateAllDirsTest, AFolderThatIsThereIsLeftAlone) {
  folders.folders = {"C:\\shop"};
  EXPECT_TRUE(Create("C:\\shop\\"));
  EXPECT_EQ(folders.created, Paths{});
}

TEST_F(CreateAllDirsTest, EveryMissingLevelIsMadeFromTheLeft) {
  EXPECT_TRUE(Create("C:\\a\\b\\c\\"));
  EXPECT_EQ(folders.created, (Paths{"C:\\a", "C:\\a\\b", "C:\\a\\b\\c"}));
  EXPECT_TRUE(files.content.empty());
}

TEST_F(CreateAllDirsTest, TheBackslashAtTheEndMayBeMissing) {
  folders.folders = {"C:\\a"};
  EXPECT_TRUE(Create("C:\\a\\b"));
  EXPECT_EQ(folders.created, Paths{"C:\\a\\b"});
}

TEST_F(CreateAllDirsTest, ASharesOwnLevelsAreNotMade) {
  EXPECT_TRUE(Create("\\\\server\\share\\in\\x\\"));
  EXPECT_EQ(folders.created, (Paths{"\\\\server\\share\\in", "\\\\server\\share\\in\\x"}));
}

TEST_F(CreateAllDirsTest, ARelativePathIsMadeToo) {
  EXPECT_TRUE(Create("data\\in\\"));
  EXPECT_EQ(folders.created, (Paths{"data", "data\\in"}));
}

TEST_F(CreateAllDirsTest, DoubledBackslashesAreOneLevel) {
  EXPECT_TRUE(Create("C:\\a\\\\b\\"));
  EXPECT_EQ(folders.created, (Paths{"C:\\a", "C:\\a\\\\b"}));
}

TEST_F(CreateAllDirsTest, APathOfNoLevelsIsNotThere) {
  EXPECT_FALSE(Create(""));
  EXPECT_EQ(folders.created, Paths{});
  EXPECT_TRUE(files.content.empty());
}

TEST_F(CreateAllDirsTest, AFileInTheWayIsLogged) {
  folders.folders = {"C:\\a"};
  folders.filesInTheWay = {"C:\\a\\b"};
  EXPECT_FALSE(Create("C:\\a\\b\\c\\"));
  EXPECT_EQ(files.content["Err.txt"],
            "15/11/2026 13:45:10 - CreateAllDirs 75 - Path/File access error ( C:\\a\\b )\r\n");
  EXPECT_EQ(folders.created, Paths{});
}

TEST_F(CreateAllDirsTest, AFailedCheckIsLoggedAndNothingIsCreated) {
  for (const char* unseen : {"C:\\a\\b\\c", "C:\\a"}) {
    folders.unseen = unseen;
    files.content.clear();
    EXPECT_FALSE(Create("C:\\a\\b\\c\\"));
    EXPECT_EQ(files.content["Err.txt"], "15/11/2026 13:45:10 - CreateAllDirs 57 - Device I/O error ( " +
                                            std::string(unseen) + "\\ )\r\n");
    EXPECT_EQ(folders.created, Paths{});
  }
}

TEST_F(CreateAllDirsTest, AMissingDriveIsLogged) {
  EXPECT_FALSE(Create("Z:\\shop\\in\\"));
  EXPECT_EQ(files.content["Err.txt"], "15/11/2026 13:45:10 - CreateAllDirs 76 - Path not found ( Z: )\r\n");
}

}  // namespace
}  // namespace orvenza::test
