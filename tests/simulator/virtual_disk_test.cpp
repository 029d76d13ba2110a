#include "simulator/virtual_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/system_error.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

/// A disk at nine o'clock with a folder C:\shop.
class VirtualDiskTest : public ::testing::Test {
 protected:
  VirtualDiskTest() { disk.MakeFolder("C:\\shop"); }

  /// The number of the failure, 0 on success.
  template <typename Operation>
  static int Failure(Operation operation) {
    try {
      operation();
    } catch (const SystemError& failure) {
      return failure.Number();
    }
    return 0;
  }

  Lines Names(const std::string& pattern) {
    Lines names;
    for (const FolderEntry& entry : folders.ListFolder(pattern)) names.push_back(entry.name);
    return names;
  }

  VirtualClock clock{{2026, 11, 16, 9, 0, 0}};
  VirtualDisk disk{clock, "C:\\shop"};
  Files& files = disk.FileSeam();
  Folders& folders = disk.FolderSeam();
};

TEST_F(VirtualDiskTest, FindsNamesInAnyLetterCaseAndSpelling) {
  files.Write("C:\\shop\\Log.txt", "");
  for (const std::string path : {"c:\\SHOP\\log.TXT", "C:shop\\Log.txt", "C:/shop/Log.txt",
                                 "C:\\shop\\\\Log.txt", "Log.txt", "\\shop\\log.txt"}) {
    EXPECT_TRUE(files.Exists(path)) << path;
  }
  files.Append("C:\\SHOP\\LOG.TXT", "line");
  EXPECT_EQ(disk.Paths(), Lines{"C:\\shop\\Log.txt"});
}

TEST_F(VirtualDiskTest, ListsOneFolderByAMask) {
  disk.Put("C:\\shop\\data\\B.txt", "12345", LocalTime{2026, 11, 15, 18, 30, 5});
  disk.Put("C:\\shop\\data\\a.dat", "");
  disk.Put("C:\\shop\\data\\abort\\c.txt", "");
  disk.Put("C:\\shop\\data.txt", "");
  EXPECT_EQ(Names("C:\\shop\\data\\*.txt"), Lines{"B.txt"});
  EXPECT_EQ(Names("C:\\shop\\data\\*.*"), (Lines{"a.dat", "abort", "B.txt"}));
  const FolderListing listing = folders.ListFolder("C:\\shop\\data\\b*");
  EXPECT_EQ(listing.at(0).size, 5u);
  EXPECT_EQ(listing.at(0).modified, (LocalTime{2026, 11, 15, 18, 30, 5}));
  EXPECT_EQ(listing.at(0).created, (LocalTime{2026, 11, 16, 9, 0, 0}));
  EXPECT_FALSE(listing.at(0).isFolder);
}

TEST_F(VirtualDiskTest, GivesFilesTheTimeOfTheClock) {
  files.Write("C:\\shop\\a.txt", "");
  clock.Advance(std::chrono::minutes(1));
  files.Copy("C:\\shop\\a.txt", "C:\\shop\\b.txt");
  files.Append("C:\\shop\\a.txt", "x");
  const FolderListing listing = folders.ListFolder("C:\\shop\\*.txt");
  EXPECT_EQ(listing.at(0).modified, (LocalTime{2026, 11, 16, 9, 1, 0}));
  EXPECT_EQ(listing.at(1).modified, (LocalTime{2026, 11, 16, 9, 0, 0}));
  EXPECT_EQ(listing.at(1).created, (LocalTime{2026, 11, 16, 9, 1, 0}));
}

TEST_F(VirtualDiskTest, MovesAFileOverAnOlderOne) {
  disk.Put("C:\\shop\\a.txt", "new");
  disk.Put("C:\\shop\\b.txt", "old");
  files.Move("C:\\shop\\a.txt", "C:\\shop\\b.txt");
  EXPECT_EQ(disk.Content("C:\\shop\\b.txt"), "new");
  EXPECT_FALSE(files.Exists("C:\\shop\\a.txt"));
  files.Move("C:\\shop\\b.txt", "C:\\shop\\B.TXT");
  EXPECT_EQ(disk.Paths(), Lines{"C:\\shop\\B.TXT"});
}

TEST_F(VirtualDiskTest, FailsAsADiskWithDrivesDoes) {
  disk.Put("C:\\shop\\a.txt", "");
  disk.Put("C:\\shop\\sub\\b.txt", "");
  disk.Put("D:\\c.txt", "");
  EXPECT_EQ(Failure([&] { files.Write("C:\\shop\\what?.txt", ""); }), 52);
  EXPECT_EQ(Failure([&] { files.Move("C:\\shop\\a.txt", "D:\\a.txt"); }), 75);
  EXPECT_EQ(Failure([&] { folders.Rename("C:\\shop\\sub", "C:\\shop"); }), 58);
  EXPECT_EQ(Failure([&] { folders.Rename("C:\\shop\\sub", "D:\\sub"); }), 75);
  EXPECT_EQ(disk.Paths(), (Lines{"C:\\shop\\a.txt", "C:\\shop\\sub\\b.txt", "D:\\c.txt"}));
}

TEST_F(VirtualDiskTest, LetsAFileThatIsReadOnlyBeReadAndMoved) {
  disk.Put("C:\\shop\\a.txt", "text");
  disk.SetReadOnly("C:\\shop\\a.txt");
  EXPECT_EQ(Failure([&] { files.Remove("C:\\shop\\a.txt"); }), 75);
  EXPECT_EQ(Failure([&] { files.Append("C:\\shop\\a.txt", "x"); }), 75);
  EXPECT_EQ(Failure([&] { files.Write("C:\\shop\\a.txt", "x"); }), 75);
  files.Move("C:\\shop\\a.txt", "C:\\shop\\b.txt");
  EXPECT_EQ(folders.ListFolder("C:\\shop\\b.txt").at(0).attributes, " R    ");
  RemoveReadOnlyToo(files, "C:\\shop\\b.txt");
  EXPECT_EQ(disk.Paths(), Lines{});
}

TEST_F(VirtualDiskTest, LetsAFileThatAnotherProgramReadsOnlyBeRead) {
  disk.Put("C:\\shop\\a.txt", "text");
  disk.Hold("C:\\shop\\a.txt", FileHold::kReading);
  EXPECT_EQ(ReadWhole(files, "C:\\shop\\a.txt"), "text");
  EXPECT_EQ(Failure([&] { files.Move("C:\\shop\\a.txt", "C:\\shop\\b.txt"); }), 70);
  EXPECT_EQ(Failure([&] { files.Remove("C:\\shop\\a.txt"); }), 70);
  EXPECT_EQ(Failure([&] { files.Append("C:\\shop\\a.txt", "x"); }), 70);
  EXPECT_EQ(Failure([&] { files.Write("C:\\shop\\a.txt", "x"); }), 75);
  EXPECT_EQ(Failure([&] { folders.Rename("C:\\shop", "C:\\old"); }), 75);
  disk.Hold("C:\\shop\\a.txt", FileHold::kNone);
  files.Remove("C:\\shop\\a.txt");
  EXPECT_EQ(disk.Paths(), Lines{});
}

TEST_F(VirtualDiskTest, LocksAFileThatAnotherProgramWrites) {
  disk.Put("C:\\shop\\a.txt", "half");
  disk.Hold("C:\\shop\\a.txt", FileHold::kWriting);
  EXPECT_TRUE(files.Exists("C:\\shop\\a.txt"));
  EXPECT_EQ(Failure([&] { files.OpenForReading("C:\\shop\\a.txt"); }), 70);
  EXPECT_EQ(Failure([&] { files.Copy("C:\\shop\\a.txt", "C:\\shop\\b.txt"); }), 70);
  EXPECT_EQ(Failure([&] { files.Move("C:\\shop\\a.txt", "C:\\shop\\b.txt"); }), 70);
}

TEST_F(VirtualDiskTest, TakesNothingNewWhenItIsFull) {
  disk.Put("C:\\shop\\a.txt", "text");
  disk.SetFull("C:", true);
  EXPECT_EQ(Failure([&] { files.Append("C:\\shop\\a.txt", "x"); }), 61);
  EXPECT_EQ(Failure([&] { files.Write("C:\\shop\\b.txt", "x"); }), 61);
  EXPECT_EQ(Failure([&] { files.Copy("C:\\shop\\a.txt", "C:\\shop\\b.txt"); }), 61);
  EXPECT_EQ(Failure([&] { folders.Create("C:\\shop\\sub"); }), 61);
  files.Move("C:\\shop\\a.txt", "C:\\shop\\b.txt");
  EXPECT_EQ(disk.Paths(), Lines{"C:\\shop\\b.txt"});
  disk.SetFull("C:", false);
  files.Append("C:\\shop\\b.txt", "x");
  EXPECT_EQ(disk.Content("C:\\shop\\b.txt"), "textx");
}

TEST_F(VirtualDiskTest, LosesADriveAndFindsItAgainUnchanged) {
  disk.Put("D:\\in\\a.txt", "text");
  disk.SetAway("D:", true);
  EXPECT_FALSE(folders.DriveAvailable("D:\\in\\"));
  EXPECT_FALSE(folders.Exists("D:\\in"));
  EXPECT_FALSE(files.Exists("D:\\in\\a.txt"));
  EXPECT_EQ(Failure([&] { files.OpenForReading("D:\\in\\a.txt"); }), 76);
  EXPECT_EQ(Failure([&] { files.Write("D:\\in\\b.txt", ""); }), 76);
  EXPECT_EQ(Failure([&] { folders.ListFolder("D:\\in\\*.txt"); }), 76);
  EXPECT_EQ(Failure([&] { folders.Create("D:\\out"); }), 76);
  disk.SetAway("D:", false);
  EXPECT_EQ(ReadWhole(files, "D:\\in\\a.txt"), "text");
}

TEST_F(VirtualDiskTest, TellsOfEachFileLeftHalfWrittenThatItRemovesAndKeepsOneThatIsHeld) {
  for (const char* path : {"a.txt", "a.txt.orv~", "held.orv~"}) disk.Put(path, "x");
  disk.Hold("held.orv~", FileHold::kReading);
  Lines told;
  disk.SetObserver([&told](const DiskEvent& event) { told.emplace_back(event.path); });
  folders.RemoveUnfinished("C:\\shop\\");
  for (const char* none : {"C:\\none\\", "Q:\\", "C:\\?\\"}) folders.RemoveUnfinished(none);
  EXPECT_EQ(told, Lines{"C:\\shop\\a.txt.orv~"});
  EXPECT_EQ(disk.Paths(), (Lines{"C:\\shop\\a.txt", "C:\\shop\\held.orv~"}));
}

TEST_F(VirtualDiskTest, KnowsWhichDrivesThereAre) {
  EXPECT_FALSE(folders.DriveAvailable("Z:\\shop\\"));
  EXPECT_TRUE(folders.DriveAvailable("c:\\nowhere\\"));
  EXPECT_EQ(folders.DriveOf("shop\\"), "");
  EXPECT_TRUE(folders.DriveAvailable("shop\\"));
}

TEST_F(VirtualDiskTest, ReportsWhatTheProgramDoesAndNothingElse) {
  Lines told;
  disk.SetObserver([&told](const DiskEvent& event) {
    told.push_back(std::to_string(static_cast<int>(event.act)) + " " + std::string(event.path) + " " +
                   std::string(event.target) + std::string(event.text));
  });
  disk.Put("a.txt", "x");
  disk.SetReadOnly("a.txt");
  files.Exists("a.txt");
  files.Append("b.txt", "line");
  files.Copy("a.txt", "c.txt");
  files.Move("b.txt", "d.txt");
  files.ClearAttributes("a.txt");
  files.Write("a.txt", "y");
  files.ClearAttributes("a.txt");
  files.Remove("a.txt");
  EXPECT_EQ(Failure([&] { files.Remove("a.txt"); }), 53);
  folders.Create("sub");
  folders.Rename("sub", "bus");
  EXPECT_EQ(told, (Lines{"1 b.txt line", "2 a.txt c.txt", "3 b.txt d.txt", "5 a.txt ", "0 a.txt ", "4 a.txt ",
                         "6 sub ", "7 sub bus"}));
}

TEST_F(VirtualDiskTest, CannotDeleteWhatIsNotThere) {
  EXPECT_EQ(Failure([&] { disk.Delete("C:\\shop\\none"); }), 53);
  EXPECT_EQ(Failure([&] { disk.Delete("C:\\none\\a.txt"); }), 76);
}

TEST_F(VirtualDiskTest, PutsNoFileAndNoFolderInTheOthersPlace) {
  disk.Put("C:\\shop\\a.txt", "1");
  disk.MakeFolder("C:\\shop\\sub");
  EXPECT_EQ(Failure([&] { disk.Put("C:\\shop\\SUB", "2"); }), 75);
  EXPECT_EQ(Failure([&] { disk.Put("C:\\shop\\a.txt\\in\\b.txt", "2"); }), 75);
  EXPECT_EQ(Failure([&] { disk.MakeFolder("C:\\shop\\A.txt"); }), 75);
  EXPECT_EQ(Failure([&] { disk.MakeFolder("C:\\shop\\a.txt\\in"); }), 75);
  disk.MakeFolder("C:\\shop\\sub");
  disk.Put("C:\\shop\\a.txt", "3");
  EXPECT_EQ(disk.Content("C:\\shop\\a.txt"), "3");
  EXPECT_EQ(disk.Paths(), Lines{"C:\\shop\\a.txt"});
  EXPECT_TRUE(folders.Exists("C:\\shop\\sub"));
}

TEST_F(VirtualDiskTest, LeavesAFileThatAProgramHolds) {
  disk.Put("C:\\shop\\a.txt", "1");
  for (const FileHold hold : {FileHold::kReading, FileHold::kWriting}) {
    disk.Hold("C:\\shop\\a.txt", hold);
    EXPECT_EQ(Failure([&] { disk.Put("C:\\shop\\a.txt", "2"); }), 70);
    EXPECT_EQ(Failure([&] { disk.Delete("C:\\shop\\a.txt"); }), 70);
    EXPECT_EQ(Failure([&] { disk.Delete("C:\\shop"); }), 70);
  }
  EXPECT_EQ(disk.Content("C:\\shop\\a.txt"), "1");
}

TEST_F(VirtualDiskTest, PutsNothingOnADriveThatIsAway) {
  disk.SetAway("D:", true);
  EXPECT_EQ(Failure([&] { disk.Put("D:\\in\\a.txt", ""); }), 76);
  EXPECT_EQ(Failure([&] { disk.MakeFolder("D:\\in"); }), 76);
  disk.SetAway("D:", false);
  EXPECT_FALSE(folders.Exists("D:\\in"));
}

TEST_F(VirtualDiskTest, GoesUpALevelButNeverAboveTheDrive) {
  disk.Put("C:\\shop\\.\\in\\..\\..\\..\\..\\a.txt", "1");
  EXPECT_EQ(disk.Content("C:\\a.txt"), "1");
  EXPECT_EQ(disk.Content("C:\\..\\shop/../a.txt"), "1");
  disk.Put("C:\\..b\\c.txt", "2");
  EXPECT_EQ(disk.Content("C:\\..b\\c.txt"), "2");
  EXPECT_EQ(disk.Content("C:\\c.txt"), std::nullopt);
}

TEST_F(VirtualDiskTest, DeletesAFolderWithAllThatIsInIt) {
  disk.Put("C:\\shop\\in\\a.txt", "");
  disk.Put("C:\\shop\\inn.txt", "");
  disk.Delete("C:\\shop\\in");
  EXPECT_EQ(disk.Paths(), Lines{"C:\\shop\\inn.txt"});
  EXPECT_FALSE(folders.Exists("C:\\shop\\in"));
}

}  // namespace
}  // namespace orvenza::test
