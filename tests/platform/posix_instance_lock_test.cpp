#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/instance_lock.h"
#include "platform/posix/descriptor.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// Whether another process can lock the folder. It ends while holding the lock.
bool AnotherProcessGets(const std::string& folder) {
  const pid_t child = ::fork();
  if (child == 0) {
    const InstanceLock lock(folder);
    ::_exit(lock.Acquired() ? 1 : 0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WEXITSTATUS(status) == 1;
}

TEST(InstanceLock, KeepsOtherProcessesOut) {
  const TempFolder folder;
  const InstanceLock lock(folder.Path());
  EXPECT_TRUE(lock.Acquired());
  EXPECT_FALSE(AnotherProcessGets(folder.Path()));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Native("")));
}

TEST(InstanceLock, EndsWithItsObject) {
  const TempFolder folder;
  { const InstanceLock lock(folder.Path()); }
  EXPECT_TRUE(AnotherProcessGets(folder.Path()));
}

TEST(InstanceLock, EndsWithItsProcess) {
  const TempFolder folder;
  EXPECT_TRUE(AnotherProcessGets(folder.Path()));
  EXPECT_TRUE(InstanceLock(folder.Path()).Acquired());
}

TEST(InstanceLock, IsOneForEachFolder) {
  const TempFolder folder;
  const TempFolder other;
  const InstanceLock lock(folder.Path());
  EXPECT_TRUE(AnotherProcessGets(other.Path()));
}

TEST(InstanceLock, AFolderThatCannotBeMarkedIsFree) {
  const TempFolder folder;
  EXPECT_TRUE(InstanceLock(folder.Path("none")).Acquired());
  EXPECT_TRUE(InstanceLock("Z:\\shop").Acquired());
}

TEST(IsFolderServed, TakesNoLockThatAStartingConnectorCouldMeet) {
  const TempFolder folder;
  const Descriptor held(::open(folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  ASSERT_EQ(::flock(held.Get(), LOCK_EX), 0);
  EXPECT_FALSE(IsFolderServed(folder.Path()));  // a connector's lock would be refused
}

TEST(IsFolderServed, SeesALockWithoutTakingOne) {
  const TempFolder folder;
  EXPECT_FALSE(IsFolderServed(folder.Path()));
  EXPECT_TRUE(AnotherProcessGets(folder.Path()));
  const InstanceLock lock(folder.Path());
  EXPECT_TRUE(IsFolderServed(folder.Path()));
  EXPECT_FALSE(IsFolderServed(folder.Path("none")));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Native("")));
}

}  // namespace
}  // namespace orvenza::test
