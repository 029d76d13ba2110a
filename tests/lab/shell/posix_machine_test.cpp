#include "lab/shell/posix/posix_machine.h"

#include <gtest/gtest.h>

#include "platform/as_nobody.h"
#include "platform/instance_lock.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

namespace fs = std::filesystem;

TEST(PosixMachine, NamesItsSystem) { EXPECT_EQ(PosixMachine().SystemName().substr(0, 6), "Linux "); }

TEST(PosixMachine, CompletesAFolder) {
  const TempFolder folder;
  folder.Write("a\\b.txt", "");
  const PosixMachine machine;
  EXPECT_EQ(machine.FullFolder(folder.Path("a\\..\\a\\")), fs::canonical(folder.Native("a")).string());
  EXPECT_EQ(machine.FullFolder("Z:\\shop"), "Z:\\shop");
}

TEST(PosixMachine, MeasuresTheRoomOnAVolume) {
  const TempFolder folder;
  EXPECT_GT(PosixMachine().FreeSpace(folder.Path()).value_or(0), 0u);
  EXPECT_EQ(PosixMachine().FreeSpace(folder.Path("none")), std::nullopt);
}

TEST(PosixMachine, TellsVolumesApart) {
  const TempFolder folder;
  folder.Write("a\\b.txt", "");
  const PosixMachine machine;
  EXPECT_NE(machine.VolumeOf(folder.Path()), "");
  EXPECT_EQ(machine.VolumeOf(folder.Path()), machine.VolumeOf(folder.Path("a\\")));
  EXPECT_NE(machine.VolumeOf(folder.Path()), machine.VolumeOf("\\proc"));
  EXPECT_EQ(machine.VolumeOf(folder.Path("none")), "");
}

TEST(PosixMachine, KnowsWhatMayBeWritten) {
  const TempFolder folder;
  folder.Write("open\\a.txt", "");
  folder.Write("shut\\a.txt", "");
  fs::permissions(folder.Native("open"), fs::perms::all);
  fs::permissions(folder.Native("open\\a.txt"), fs::perms::all);
  fs::permissions(folder.Native("shut"),
                  fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
  fs::permissions(folder.Native("shut\\a.txt"), fs::perms::owner_read);
  const auto answers = [&] {
    std::string text;
    for (const char* path : {"open", "open\\a.txt", "shut\\", "shut\\a.txt", "none"}) {
      text += PosixMachine().MayWrite(folder.Path(path)) ? "yes " : "no ";
    }
    return text;
  };
  EXPECT_EQ(AsNobody(answers), "yes yes no no no ");
}

TEST(PosixMachine, SeesAConnectorAtWork) {
  const TempFolder folder;
  EXPECT_FALSE(PosixMachine().IsServed(folder.Path()));
  const InstanceLock lock(folder.Path());
  EXPECT_TRUE(PosixMachine().IsServed(folder.Path()));
}

}  // namespace
}  // namespace orvenza::test
