#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "simulator/item_command.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

class PaperEndTest : public testing::Test {
 protected:
  std::string Run(const std::string& command) { return device.Execute(command); }

  VirtualClock clock;
  PaperRoll paper;
  SimulatedRegister device{clock, paper};
  const std::string bread = ItemCommand("1003", "PANE", 1000, 150);
};

TEST_F(PaperEndTest, PaperOutRefusesUntilTheRestart) {
  for (const auto& [which, error] :
       {std::pair(Paper::kJournal, "ERR01"), std::pair(Paper::kReceipt, "ERR02")}) {
    device.RunOutOfPaper(which);
    EXPECT_TRUE(device.PaperOut());
    EXPECT_EQ(Run("321701"), error);
    EXPECT_EQ(Run("106601UNO             "), error);
    EXPECT_EQ(Run("106601DUE             "), error);
    EXPECT_EQ(Run("321701"), error);
    EXPECT_EQ(Run("114900"), "114900");
    EXPECT_FALSE(device.PaperOut());
    EXPECT_EQ(Run("321701"), "321700");
    EXPECT_EQ(Run("106601TRE             "), "106600");
  }
  EXPECT_EQ(paper.Text(), "UNO\nTRE\nUNO\nTRE\n");
}

TEST_F(PaperEndTest, TheFirstCommandAfterThePaperEndedIsCarriedOut) {
  device.RunOutOfPaper(Paper::kReceipt);
  EXPECT_EQ(Run(bread), "ERR02");
  EXPECT_TRUE(device.ReceiptOpen());
  EXPECT_EQ(Run(bread), "ERR02");
  Run("114902");
  EXPECT_EQ(Run("321701"), "ERR17");
  EXPECT_EQ(Run("103601000000000"), "103600");
  EXPECT_EQ(device.Receipts().back().total, 150);
}

TEST_F(PaperEndTest, ARefusedCommandIsNotTakenForTheOneHeld) {
  device.RunOutOfPaper(Paper::kReceipt);
  EXPECT_EQ(Run("105001"), "ERR11");
  EXPECT_EQ(Run(bread), "ERR02");
  EXPECT_TRUE(device.ReceiptOpen());
}

TEST_F(PaperEndTest, APaymentAtThePaperEndClosesTheReceipt) {
  Run(bread);
  device.RunOutOfPaper(Paper::kJournal);
  EXPECT_EQ(Run("103601000000000"), "ERR01");
  const std::size_t before = paper.Lines().size();
  Run("114900");
  EXPECT_EQ(Run("321701"), "321700");
  EXPECT_EQ(device.DailyTotal(), 150);
  EXPECT_EQ(paper.Lines().size(), before + 4);
}

TEST_F(PaperEndTest, QueriesAndSettingsNeedNoPaper) {
  device.RunOutOfPaper(Paper::kJournal);
  Run("106601UNO             ");
  EXPECT_EQ(Run("420100"), "42011611260900");
  EXPECT_EQ(Run("199900"), "199900ORVSIM  01  01.00.00");
  EXPECT_EQ(Run("104701"), "104700");
  EXPECT_EQ(Run("10670101GRAZIE                     "), "106700");
}

TEST_F(PaperEndTest, ARestartWithPaperInPlaceIsTaken) {
  EXPECT_EQ(Run("114900"), "114900");
  EXPECT_EQ(paper.Text(), "");
}

TEST_F(PaperEndTest, ARollEndsAfterItsLines) {
  SimulatedRegister small(clock, paper, {.rollLines = 3});
  const std::string text = "106601UNO             ";
  EXPECT_EQ(small.Execute(text), "106600");
  EXPECT_EQ(small.Execute(text), "106600");
  EXPECT_EQ(small.Execute(text), "ERR02");
  EXPECT_EQ(small.Execute(text), "ERR02");
  EXPECT_EQ(paper.Lines().size(), 3u);
  EXPECT_EQ(small.Execute("114902"), "114900");
  EXPECT_EQ(small.Execute(text), "106600");
}

TEST_F(PaperEndTest, PrintsWhatARollCouldNotHoldOnTheNext) {
  SimulatedRegister small(clock, paper, {.rollLines = 4});
  EXPECT_EQ(small.Execute(bread), "ERR02");
  small.Execute("114902");
  EXPECT_EQ(small.Execute("102800"), "102800");
  EXPECT_EQ(paper.Lines().back(), std::string(40, '-'));
}

}  // namespace
}  // namespace orvenza::test
