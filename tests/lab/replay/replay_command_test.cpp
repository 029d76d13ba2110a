#include "lab/replay/replay_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lab/shell/run_lab.h"
#include "lab/shell/shop_bench.h"

namespace orvenza::test {
namespace {

class ReplayCommandTest : public ShopBench {
 protected:
  int Run(std::vector<std::string> words) {
    words.insert(words.begin(), "replay");
    LabSurroundings lab = Lab();
    return RunLab(words, {ReplayCommand()}, lab);
  }
};

TEST_F(ReplayCommandTest, ReadsTheOlderFilesFirst) {
  disk.Put(At("trace.1.txt"), "16/11/2026 09:00:00.000  start     Orvenza 1.0.0 in C:\\Orvenza\r\n");
  disk.Put(At("trace.txt"), "16/11/2026 09:00:05.000  menu      Esci\r\n");
  EXPECT_EQ(Run({At("trace.txt"), "--output", At("day.scenario")}), 0);
  EXPECT_NE(disk.Content(At("day.scenario")).value().find("at 5s menu Esci\n"), std::string::npos);
  EXPECT_EQ(out.str(), "");
}

TEST_F(ReplayCommandTest, RefusesWhatIsNoTimeOfDay) {
  disk.Put(At("trace.txt"), "");
  for (const char* time : {"10", "10:", "25:00", "10:60", "a:b", "10:3x", ":30"}) {
    EXPECT_EQ(Run({At("trace.txt"), "--around", time}), kFailed) << time;
  }
  EXPECT_NE(err.str().find("'25:00' is no time of day such as 10:32"), std::string::npos) << err.str();
  EXPECT_EQ(Run({At("trace.txt"), "--around", "9:05"}), 0);
}

TEST_F(ReplayCommandTest, SaysThatATraceIsMissing) {
  EXPECT_EQ(Run({At("trace.txt")}), kFailed);
  EXPECT_NE(err.str().find("the trace cannot be read: File not found"), std::string::npos) << err.str();
}

}  // namespace
}  // namespace orvenza::test
