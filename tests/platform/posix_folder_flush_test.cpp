#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/posix/posix_files.h"
#include "support/temp_folder.h"

namespace {

/// The flushed paths, in order.
std::vector<std::string> flushed;

}  // namespace

/// Replaces the system's function in this test program.
extern "C" int fsync(int descriptor) {
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  flushed.push_back(std::filesystem::read_symlink(link).string());
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

namespace orvenza::test {
namespace {

using Paths = std::vector<std::string>;

class FolderFlush : public ::testing::Test {
 protected:
  FolderFlush() {
    std::filesystem::create_directory(root_ + "/other");
    files_.Write(At("a"), "text");
    flushed.clear();
  }

  std::string At(const std::string& name) const { return root_ + "\\" + name; }

  TempFolder folder_;
  const std::string root_ = std::filesystem::canonical(folder_.Native(".")).string();
  PosixFiles files_;
};

TEST_F(FolderFlush, FollowsTheRenameOfAFileThatWasWritten) {
  files_.Write(At("b"), "text");
  ASSERT_EQ(flushed.size(), 2U);
  EXPECT_EQ(flushed[1], root_);
}

TEST_F(FolderFlush, FollowsTheRenameOfACopy) {
  files_.Copy(At("a"), At("other\\a"));
  ASSERT_EQ(flushed.size(), 2U);
  EXPECT_EQ(flushed[1], root_ + "/other");
}

TEST_F(FolderFlush, FollowsAMoveInBothFolders) {
  files_.Move(At("a"), At("other\\a"));
  EXPECT_EQ(flushed, (Paths{root_ + "/other", root_}));
}

TEST_F(FolderFlush, FollowsAMoveWithinAFolderOnce) {
  files_.Move(At("a"), At("b"));
  EXPECT_EQ(flushed, Paths{root_});
}

}  // namespace
}  // namespace orvenza::test
