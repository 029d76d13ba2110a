#include <gtest/gtest.h>

#include <optional>

#include "platform/instance_lock.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

bool IsFree(const std::string& folder) { return InstanceLock(folder).Acquired(); }

TEST(InstanceLock, KeepsASecondOneOut) {
  const TempFolder folder;
  const InstanceLock lock(folder.Path());
  EXPECT_TRUE(lock.Acquired());
  EXPECT_FALSE(IsFree(folder.Path()));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Native("")));
}

TEST(InstanceLock, EndsWithItsObject) {
  const TempFolder folder;
  { const InstanceLock lock(folder.Path()); }
  EXPECT_TRUE(IsFree(folder.Path()));
}

TEST(InstanceLock, IsNotKeptByACopyThatWasRefused) {
  const TempFolder folder;
  std::optional<InstanceLock> first(std::in_place, folder.Path());
  const InstanceLock refused(folder.Path());
  first.reset();
  EXPECT_FALSE(refused.Acquired());
  EXPECT_TRUE(IsFree(folder.Path()));
}

TEST(InstanceLock, IsOneForAllSpellingsOfAFolder) {
  const TempFolder folder;
  folder.Write("Shop\\a.txt", "x");
  const InstanceLock lock(folder.Path("Shop"));
  for (const char* spelling : {"Shop", "SHOP", "shop\\", "Shop\\..\\Shop"}) {
    EXPECT_FALSE(IsFree(folder.Path(spelling))) << spelling;
  }
}

TEST(InstanceLock, OfADrivesRootIsNotThatOfItsCurrentFolder) {
  const std::filesystem::path before = std::filesystem::current_path();
  const TempFolder folder;
  std::filesystem::current_path(folder.Native(""));
  const std::string drive = folder.Path().substr(0, 2);
  {
    const InstanceLock lock(folder.Path());
    EXPECT_TRUE(IsFree(drive)) << drive;
  }
  std::filesystem::current_path(before);
}

TEST(InstanceLock, IsOneForEachFolder) {
  const TempFolder folder;
  const TempFolder other;
  const InstanceLock lock(folder.Path());
  EXPECT_TRUE(IsFree(other.Path()));
}

TEST(InstanceLock, AFolderThatCannotBeMarkedIsFree) {
  EXPECT_TRUE(IsFree(""));
  EXPECT_TRUE(IsFree("Q:\\shop"));
}

}  // namespace
}  // namespace orvenza::test
