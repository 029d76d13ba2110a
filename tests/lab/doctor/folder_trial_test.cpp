#include "lab/doctor/folder_trial.h"

#include <gtest/gtest.h>

#include "lab/shell/shop_bench.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using Contents = std::map<std::string, std::string>;

const Contents kTickets = {{"C:\\shop\\1.txt", "0;1;"}};

struct Trial : ::testing::Test {
  Trial() { memory.content = kTickets; }
  MemoryFiles memory;
  FaultyFiles files{memory};
};

TEST_F(Trial, LeavesTheFolderAsItIs) {
  std::vector<std::string> done;
  for (const char* operation : {"Write", "Move", "Remove"}) {
    files.Before(operation, [&, operation](const std::string& path) {
      EXPECT_TRUE(path.ends_with(kUnfinishedSuffix)) << path;
      done.push_back(operation);
    });
  }
  EXPECT_EQ(TryFolder(files, "C:\\shop\\"), "");
  EXPECT_EQ(done, (std::vector<std::string>{"Write", "Move", "Remove"}));
  EXPECT_EQ(memory.content, kTickets);
}

TEST_F(Trial, SaysWhatCannotBeDoneAndStillLeavesTheFolderAsItIs) {
  const std::pair<const char*, const char*> rows[] = {{"Write", "made"}, {"Move", "renamed"}};
  for (const auto& [operation, word] : rows) {
    files.FailNext(operation, error_number::kPermissionDenied);
    const std::string said = TryFolder(files, "C:\\shop\\");
    EXPECT_EQ(said.find(std::string("a file cannot be ") + word + " there: Permission denied"), 0U) << said;
    EXPECT_EQ(memory.content, kTickets);
  }
}

TEST_F(Trial, TriesTwiceToRemoveItsFile) {
  files.FailNext("Remove", error_number::kPermissionDenied);
  EXPECT_EQ(TryFolder(files, "C:\\shop\\").find("a file cannot be removed there: "), 0U);
  EXPECT_EQ(memory.content, kTickets);
}

TEST_F(Trial, SucceedsOverAFileThatAnEarlierOneHadToLeave) {
  files.FailAlways("Remove", "", error_number::kPermissionDenied);
  EXPECT_NE(TryFolder(files, "C:\\shop\\"), "");
  EXPECT_EQ(memory.content.size(), 2U);
  files.Heal();
  EXPECT_EQ(TryFolder(files, "C:\\shop\\"), "");
  EXPECT_EQ(memory.content, kTickets);
}

class FolderTrialFindings : public ShopBench {};

TEST_F(FolderTrialFindings, ReportEachFolderOfTicketsThatCannotBeUsed) {
  disk.SetFull("C:", true);
  const std::string said = Said();
  for (const char* folder :
       {"ticket folder C:\\Orvenza\\data\\", "in-process folder C:\\Orvenza\\data\\inproces\\",
        "abort folder C:\\Orvenza\\data\\abort\\", "historic folder C:\\Orvenza\\storico\\"}) {
    EXPECT_NE(said.find("error folder.trial: The " + std::string(folder) +
                        " cannot be used: a file cannot be made there: Disk full"),
              std::string::npos)
        << said;
  }
}

TEST_F(FolderTrialFindings, LeaveNoFileBehind) {
  const auto before = disk.Paths();
  Said();
  EXPECT_EQ(disk.Paths(), before);
}

}  // namespace
}  // namespace orvenza::test
