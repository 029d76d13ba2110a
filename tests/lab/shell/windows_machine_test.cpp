#include "lab/shell/windows/windows_machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "platform/instance_lock.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

namespace fs = std::filesystem;

TEST(WindowsMachine, NamesItsSystem) {
  const std::string name = WindowsMachine().SystemName();
  EXPECT_EQ(name.substr(0, 8), "Windows ");
  EXPECT_TRUE(name.ends_with(" bits")) << name;
}

TEST(WindowsMachine, CompletesAFolder) {
  const TempFolder folder;
  EXPECT_EQ(WindowsMachine().FullFolder(folder.Path("a\\..\\a\\")), folder.Path("a"));
}

TEST(WindowsMachine, MeasuresTheRoomOnAVolume) {
  const TempFolder folder;
  EXPECT_GT(WindowsMachine().FreeSpace(folder.Path()).value_or(0), 0u);
  EXPECT_EQ(WindowsMachine().FreeSpace(folder.Path("none")), std::nullopt);
}

TEST(WindowsMachine, KnowsTwoFoldersOfOneVolume) {
  const TempFolder folder;
  folder.Write("a\\b.txt", "");
  const WindowsMachine machine;
  EXPECT_NE(machine.VolumeOf(folder.Path()), "");
  EXPECT_EQ(machine.VolumeOf(folder.Path()), machine.VolumeOf(folder.Path("a\\")));
  EXPECT_EQ(machine.VolumeOf(folder.Path("none")), "");
}

TEST(WindowsMachine, KnowsWhatMayBeWritten) {
  const TempFolder folder;
  folder.Write("a.txt", "");
  folder.Write("b.txt", "");
  fs::permissions(folder.Native("b.txt"), fs::perms::owner_read);
  const WindowsMachine machine;
  EXPECT_TRUE(machine.MayWrite(folder.Path()));
  EXPECT_TRUE(machine.MayWrite(folder.Path("a.txt")));
  EXPECT_FALSE(machine.MayWrite(folder.Path("b.txt")));
  EXPECT_FALSE(machine.MayWrite(folder.Path("none")));
}

TEST(WindowsMachine, SeesAConnectorAtWork) {
  const TempFolder folder;
  const WindowsMachine machine;
  EXPECT_FALSE(machine.IsServed(folder.Path()));
  std::optional<InstanceLock> lock(std::in_place, folder.Path());
  EXPECT_TRUE(machine.IsServed(folder.Path()));
  lock.reset();
  EXPECT_FALSE(machine.IsServed(folder.Path()));
}

TEST(WindowsMachine, ListsPortsInTheOrderOfTheirNumbers) {
  const auto ports = WindowsMachine().SerialPorts();
  ASSERT_TRUE(ports);
  EXPECT_TRUE(std::is_sorted(ports->begin(), ports->end()));
}

}  // namespace
}  // namespace orvenza::test
