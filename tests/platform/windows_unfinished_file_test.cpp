#include "platform/windows/unfinished_file.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/failure_of.h"
#include "platform/windows/wide.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

/// A finished file whose old target is open in another program.
class ReplacementTest : public testing::Test {
 protected:
  ReplacementTest() {
    folder.Write("a.txt", "old");
    holder = FileHandle(::CreateFileW(ToWide(folder.Path("a.txt")).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    file.emplace(folder.Path("a.txt"));
    file->Add("new");
  }

  TempFolder folder;
  FileHandle holder;
  std::optional<UnfinishedFile> file;
  int pauses = 0;
};

TEST_F(ReplacementTest, SucceedsOnceTheOtherProgramLetsGo) {
  file->Finish([&] {
    if (++pauses == UnfinishedFile::kReplaceTries - 1) holder.Reset();
  });
  EXPECT_EQ(pauses, UnfinishedFile::kReplaceTries - 1) << "the last try succeeds";
  EXPECT_EQ(folder.Read("a.txt"), "new");
}

TEST_F(ReplacementTest, FailsWhileTheOtherProgramHoldsOn) {
  EXPECT_NE(FailureOf([&] { file->Finish([&] { ++pauses; }); }), "no failure");
  EXPECT_EQ(pauses, UnfinishedFile::kReplaceTries - 1) << "one between two tries";
  file.reset();
  EXPECT_EQ(folder.Read("a.txt"), "old");
  EXPECT_FALSE(folder.Has("a.txt.orv~"));
}

TEST_F(ReplacementTest, IsNotTriedAgainAfterAnotherFailure) {
  const std::string path = folder.Path("a.txt");
  const auto removed = [&] {
    ++pauses;
    ::DeleteFileW(ToWide(path + ".orv~").c_str());
  };
  EXPECT_EQ(FailureOf([&] { file->Finish(removed); }), "53 File not found ( " + path + " )");
  EXPECT_EQ(pauses, 1);
  EXPECT_EQ(folder.Read("a.txt"), "old");
}

TEST_F(ReplacementTest, DoesNotWaitWhereNobodyHoldsTheOlderFile) {
  holder.Reset();
  file->Finish([&] { ++pauses; });
  EXPECT_EQ(pauses, 0);
  EXPECT_EQ(folder.Read("a.txt"), "new");
}

}  // namespace
}  // namespace orvenza::test
