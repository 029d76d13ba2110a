#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/as_nobody.h"
#include "platform/failure_of.h"
#include "platform/posix/unfinished_file.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// Simulates a full disk: during its lifetime no file may grow beyond `bytes`.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    oldHandler_ = ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{bytes, old_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    ::signal(SIGXFSZ, oldHandler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit old_{};
  void (*oldHandler_)(int) = nullptr;
};

class PosixFilesTest : public testing::Test {
 protected:
  mode_t ModeOf(const std::string& name) const {
    struct stat status {};
    ::stat(folder.Native(name).c_str(), &status);
    return status.st_mode & 0777;
  }

  std::ptrdiff_t EntryCount() const {
    const std::filesystem::directory_iterator entries(folder.Native(""));
    return std::distance(begin(entries), end(entries));
  }

  TempFolder folder;
  PosixFiles files;
};

TEST_F(PosixFilesTest, FindsFilesByTheSystemsSpellingToo) {
  folder.Write("data\\a.txt", "x");
  EXPECT_TRUE(files.Exists(folder.Path() + "/data/a.txt"));
  EXPECT_FALSE(files.Exists(folder.Path("data\\a.txt\\b.txt")));
  EXPECT_FALSE(files.Exists(folder.Path(std::string(300, 'x'))));
}

TEST_F(PosixFilesTest, AFailedCheckIsNotAMissingFile) {
  folder.Write("shop\\a.txt", "x");
  ::chmod(folder.Native("shop").c_str(), 0000);
  const std::string path = folder.Path("shop\\a.txt");
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { files.Exists(path); }); }),
            "70 Permission denied ( " + path + " )");
  EXPECT_EQ(AsNobody([&] { return MayExist(files, path) ? "perhaps" : "no"; }), "perhaps");
  std::filesystem::create_symlink("circle", folder.Native("circle"));
  EXPECT_EQ(FailureOf([&] { files.Exists(folder.Path("circle")); }),
            "75 Path/File access error ( " + folder.Path("circle") + " )");
}

TEST_F(PosixFilesTest, WritingKeepsThePermissions) {
  folder.Write("a.ini", "old");
  ::chmod(folder.Native("a.ini").c_str(), 0666);
  files.Write(folder.Path("a.ini"), "new");
  EXPECT_EQ(ModeOf("a.ini"), 0666u);
}

TEST_F(PosixFilesTest, WritesTheLongestName) {
  const std::string name(255, 'n');
  files.Write(folder.Path(name), "new");
  EXPECT_EQ(folder.Read(name), "new");
}

TEST_F(PosixFilesTest, CopiesWithTheModificationTime) {
  folder.Write("a.txt", "ticket");
  folder.SetModified("a.txt", 1'700'000'000);
  folder.Write("b.txt", "older target");
  files.Copy(folder.Path("a.txt"), folder.Path("b.txt"));
  EXPECT_EQ(folder.Read("b.txt"), "ticket");
  struct stat status {};
  ::stat(folder.Native("b.txt").c_str(), &status);
  EXPECT_EQ(status.st_mtim.tv_sec, 1'700'000'000);
  EXPECT_EQ(EntryCount(), 2);
}

TEST_F(PosixFilesTest, ACopyOfAReadOnlyFileIsWritable) {
  folder.Write("a.txt", "ticket");
  ::chmod(folder.Native("a.txt").c_str(), 0400);
  files.Copy(folder.Path("a.txt"), folder.Path("b.txt"));
  EXPECT_EQ(ModeOf("b.txt"), 0600u);
}

TEST_F(PosixFilesTest, GivesAFileTheModificationTimeOfAnother) {
  folder.Write("a.txt", "ticket");
  folder.SetModified("a.txt", 1'700'000'000);
  folder.Write("b.txt", "request");
  files.CopyModified(folder.Path("a.txt"), folder.Path("b.txt"));
  EXPECT_EQ(std::filesystem::last_write_time(folder.Native("b.txt")),
            std::filesystem::last_write_time(folder.Native("a.txt")));
  EXPECT_EQ(folder.Read("b.txt"), "request");
  const std::string none = folder.Path("none.txt");
  const std::string notFound = "53 File not found ( " + none + " )";
  EXPECT_EQ(FailureOf([&] { files.CopyModified(none, folder.Path("b.txt")); }), notFound);
  EXPECT_EQ(FailureOf([&] { files.CopyModified(folder.Path("a.txt"), none); }), notFound);
}

TEST_F(PosixFilesTest, MovesOverAnOlderFileAlsoAReadOnlyOne) {
  folder.Write("a.txt", "new");
  folder.Write("b.txt", "something older");
  ::chmod(folder.Native("b.txt").c_str(), 0444);
  files.Move(folder.Path("a.txt"), folder.Path("b.txt"));
  EXPECT_EQ(folder.Read("b.txt"), "new");
  EXPECT_EQ(EntryCount(), 1);
}

TEST_F(PosixFilesTest, AMoveThatFailsSaysWhyAndLeavesTheFile) {
  folder.Write("a.txt", "x");
  folder.Write("sub\\inside.txt", "x");
  const std::string a = folder.Path("a.txt");
  const struct {
    std::string from;
    std::string to;
    std::string failure;
  } rows[] = {
      {a, folder.Path("sub"), "75 Path/File access error ( " + a + " )"},
      {a, a + "\\b.txt", "75 Path/File access error ( " + a + " )"},
      {a, folder.Path(std::string(256, 'n')), "52 Bad file name or number ( " + a + " )"},
      {a, "Z:\\a.txt", "76 Path not found ( Z:\\a.txt )"},
      {"", a, "52 Bad file name or number"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FailureOf([&] { files.Move(row.from, row.to); }), row.failure) << row.from << " to " << row.to;
  }
  EXPECT_EQ(folder.Read("a.txt"), "x");
}

TEST_F(PosixFilesTest, AMoveOutOfAFolderThatMayNotBeWrittenIsError70) {
  folder.Write("shop\\a.txt", "x");
  ::chmod(folder.Native("shop").c_str(), 0555);
  const std::string path = folder.Path("shop\\a.txt");
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { files.Move(path, path + ".2"); }); }),
            "70 Permission denied ( " + path + " )");
}

TEST_F(PosixFilesTest, ClearsTheReadOnlyAttribute) {
  folder.Write("a.txt", "x");
  ::chmod(folder.Native("a.txt").c_str(), 0444);
  files.ClearAttributes(folder.Path("a.txt"));
  EXPECT_EQ(ModeOf("a.txt"), 0644u);
}

TEST_F(PosixFilesTest, AFullDiskIsError61) {
  EXPECT_EQ(FailureOf([&] { files.Append("\\dev\\full", "x"); }), "61 Disk full ( \\dev\\full )");
}

TEST_F(PosixFilesTest, AnAppendCutShortIsError61) {
  const std::string path = folder.Path("Log.txt");
  const FullDisk disk(10);
  EXPECT_EQ(FailureOf([&] { files.Append(path, "0123456789abc"); }), "61 Disk full ( " + path + " )");
}

TEST_F(PosixFilesTest, AWriteThatFailsLeavesTheOldFile) {
  folder.Write("a.txt", "old");
  const std::string path = folder.Path("a.txt");
  const FullDisk disk(10);
  EXPECT_EQ(FailureOf([&] { files.Write(path, "0123456789abc"); }), "61 Disk full ( " + path + " )");
  EXPECT_EQ(folder.Read("a.txt"), "old");
  EXPECT_EQ(EntryCount(), 1);
}

TEST_F(PosixFilesTest, ACopyThatFailsLeavesNoTarget) {
  folder.Write("a.txt", "0123456789abc");
  const std::string target = folder.Path("b.txt");
  const FullDisk disk(10);
  EXPECT_EQ(FailureOf([&] { files.Copy(folder.Path("a.txt"), target); }), "61 Disk full ( " + target + " )");
  EXPECT_EQ(EntryCount(), 1);
}

TEST_F(PosixFilesTest, AnUnfinishedFileIsNotUnderItsName) {
  {
    UnfinishedFile file(folder.Path("a.txt"), 0666);
    file.Add("half");
    EXPECT_TRUE(folder.Has("a.txt.orv~"));
    EXPECT_FALSE(folder.Has("a.txt"));
  }
  EXPECT_EQ(EntryCount(), 0);
}

/// Calls every operation on `path`, or on `path` and a valid one.
std::vector<std::string> AllFailures(const std::string& path, const std::string& good) {
  PosixFiles files;
  return {FailureOf([&] { files.Size(path); }),
          FailureOf([&] { files.OpenForReading(path); }),
          FailureOf([&] { files.Append(path, "x"); }),
          FailureOf([&] { files.Write(path, "x"); }),
          FailureOf([&] { files.Copy(path, good + ".2"); }),
          FailureOf([&] { files.Copy(good, path); }),
          FailureOf([&] { files.Remove(path); }),
          FailureOf([&] { files.ClearAttributes(path); })};
}

TEST_F(PosixFilesTest, EveryOperationReportsAPathThatTheSystemRefuses) {
  folder.Write("a.txt", "x");
  const std::string belowAFile = folder.Path("a.txt\\b.txt");
  const std::string tooLong = folder.Path(std::string(256, 'n'));
  const struct {
    std::string path;
    std::string failure;
  } rows[] = {
      {belowAFile, "75 Path/File access error ( " + belowAFile + " )"},
      {tooLong, "52 Bad file name or number ( " + tooLong + " )"},
      {"\\\\server\\share\\a.txt", "76 Path not found ( \\\\server\\share\\a.txt )"},
  };
  for (const auto& row : rows) {
    for (const std::string& failure : AllFailures(row.path, folder.Path("a.txt"))) {
      EXPECT_EQ(failure, row.failure);
    }
  }
}

TEST_F(PosixFilesTest, AFileThatMayNotBeTouchedIsError70) {
  folder.Write("shop\\a.txt", "x");
  ::chmod(folder.Native("shop\\a.txt").c_str(), 0000);
  ::chmod(folder.Native("shop").c_str(), 0555);
  const std::string path = folder.Path("shop\\a.txt");
  const std::string denied = "70 Permission denied ( " + path + " )";
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { files.OpenForReading(path); }); }), denied);
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { files.Append(path, "x"); }); }), denied);
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { files.Write(path, "x"); }); }), denied);
  EXPECT_EQ(AsNobody([&] { return FailureOf([&] { files.Remove(path); }); }), denied);
}

TEST_F(PosixFilesTest, APipeDoesNotBlockAReader) {
  ::mkfifo(folder.Native("pipe.txt").c_str(), 0666);
  const std::string path = folder.Path("pipe.txt");
  const std::string expected = "75 Path/File access error ( " + path + " )";
  EXPECT_EQ(FailureOf([&] { files.OpenForReading(path); }), expected);
  EXPECT_EQ(FailureOf([&] { files.Copy(path, folder.Path("b.txt")); }), expected);
}

TEST_F(PosixFilesTest, APipeDoesNotBlockAnAppend) {
  ::mkfifo(folder.Native("Log.txt").c_str(), 0666);
  const std::string path = folder.Path("Log.txt");
  EXPECT_EQ(FailureOf([&] { files.Append(path, "x"); }), "68 Device unavailable ( " + path + " )");
}

}  // namespace
}  // namespace orvenza::test
