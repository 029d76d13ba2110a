#include "support/faulty_files.h"

#include <gtest/gtest.h>

#include "platform/failure_of.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

TEST(FaultyFiles, FailsTheNextOperationOnly) {
  MemoryFiles real;
  FaultyFiles files(real);
  files.FailNext("Append", 61);
  files.Write("a", "1");
  EXPECT_EQ(FailureOf([&] { files.Append("a", "2"); }), "61 Disk full ( a )");
  files.Append("a", "3");
  EXPECT_EQ(real.content["a"], "13");
}

TEST(FaultyFiles, FailsTheNthOperation) {
  MemoryFiles real;
  FaultyFiles files(real);
  files.FailNth("Append", 3, 61);
  for (int i = 0; i < 5; ++i) FailureOf([&] { files.Append("a", std::to_string(i)); });
  EXPECT_EQ(real.content["a"], "0134");
}

TEST(FaultyFiles, FailsOnAPathUntilHealed) {
  MemoryFiles real;
  real.content["t.txt"] = "x";
  FaultyFiles files(real);
  files.FailAlways("Copy", "storico", 75);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(FailureOf([&] { files.Copy("t.txt", "storico\\1.txt"); }),
              "75 Path/File access error ( t.txt )");
  }
  EXPECT_EQ(FailureOf([&] { files.Copy("t.txt", "abort\\1.txt"); }), "no failure");
  files.Heal();
  EXPECT_EQ(FailureOf([&] { files.Copy("t.txt", "storico\\1.txt"); }), "no failure");
}

TEST(FaultyFiles, FailsInTheMiddleOfAFile) {
  MemoryFiles real;
  real.content["a"] = "12345";
  FaultyFiles files(real);
  files.FailReadAfter(3, 57);
  const auto reader = files.OpenForReading("a");
  char buffer[10];
  EXPECT_EQ(reader->Read(buffer, sizeof buffer), 3u);
  EXPECT_EQ(FailureOf([&] { reader->Read(buffer, sizeof buffer); }), "57 Device I/O error ( a )");
  files.Heal();
  EXPECT_EQ(files.OpenForReading("a")->Read(buffer, sizeof buffer), 5u);
}

TEST(FaultyFiles, CallsBeforeAnOperation) {
  MemoryFiles real;
  real.content["a"] = "x";
  FaultyFiles files(real);
  files.Before("Copy", [&](const std::string& path) { real.Remove(path); });
  EXPECT_EQ(FailureOf([&] { files.Copy("a", "b"); }), "53 File not found ( a )");
}

TEST(FaultyFiles, EveryOperationCanFail) {
  MemoryFiles real;
  real.content["a"] = "x";
  FaultyFiles files(real);
  for (const char* operation : {"Exists", "Size", "OpenForReading", "Append", "Write", "Copy", "Remove",
                                "ClearAttributes", "CopyModified"}) {
    files.FailNext(operation, 70);
  }
  const std::string denied = "70 Permission denied ( a )";
  EXPECT_EQ(FailureOf([&] { files.Exists("a"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.Size("a"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.OpenForReading("a"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.Append("a", "x"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.Write("a", "x"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.Copy("a", "b"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.Remove("a"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.ClearAttributes("a"); }), denied);
  EXPECT_EQ(FailureOf([&] { files.CopyModified("a", "b"); }), denied);
}

class NoFolders : public Folders {
 public:
  bool Exists(const std::string&) const override { return true; }
  FolderListing ListFolder(const std::string&) const override { return {}; }
  void RemoveUnfinished(const std::string&) override {}
  void Create(const std::string&) override {}
  void Rename(const std::string&, const std::string&) override {}
  std::string DriveOf(const std::string&) const override { return "C:"; }
  bool DriveAvailable(const std::string&) const override { return true; }
};

TEST(FaultyFolders, EveryOperationCanFail) {
  NoFolders real;
  FaultyFolders folders(real);
  for (const char* operation : {"Exists", "ListFolder", "Create", "Rename"}) folders.FailNext(operation, 75);
  const std::string refused = "75 Path/File access error ( a )";
  EXPECT_EQ(FailureOf([&] { folders.Exists("a"); }), refused);
  EXPECT_EQ(FailureOf([&] { folders.ListFolder("a"); }), refused);
  EXPECT_EQ(FailureOf([&] { folders.Create("a"); }), refused);
  EXPECT_EQ(FailureOf([&] { folders.Rename("a", "b"); }), refused);
}

TEST(FaultyFolders, ADriveCanBeTakenAway) {
  NoFolders real;
  FaultyFolders folders(real);
  folders.TakeDriveAway("storico", "H:");
  EXPECT_FALSE(folders.DriveAvailable("x\\storico\\"));
  EXPECT_EQ(folders.DriveOf("x\\storico\\"), "H:");
  EXPECT_FALSE(folders.Exists("x\\storico\\"));
  EXPECT_EQ(FailureOf([&] { folders.Create("x\\storico\\"); }), "76 Path not found ( x\\storico\\ )");
  EXPECT_TRUE(folders.DriveAvailable("x\\data\\"));
  folders.Heal();
  EXPECT_EQ(folders.DriveOf("x\\storico\\"), "C:");
  EXPECT_TRUE(folders.Exists("x\\storico\\"));
}

}  // namespace
}  // namespace orvenza::test
