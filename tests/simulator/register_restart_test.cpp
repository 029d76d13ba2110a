#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/item_command.h"
#include "simulator/simulated_register.h"
#include "simulator/state_file.h"
#include "simulator/virtual_clock.h"

// With the state of an earlier start the simulated register goes on as if there had been no restart.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

/// A command and what happens before it.
struct Step {
  std::string command;
  std::string reply;
  enum { kNothing, kPaperEnds, kPcClockIsSet } before = kNothing;
};

/// A day that asks for every member of the state, in a register for receipts of five entries.
std::vector<Step> Day() {
  const std::string bread = ItemCommand("1003", "PANE", 1000, 150);
  return {
      {"420100", "42011711260000"},
      {"420100", "42011711260000", Step::kPcClockIsSet},
      {"106701"
       "02SECONDA",
       "106700"},
      {"106701"
       "01PRIMA",
       "106700"},
      {"106301", "106300"},  // A document.
      {bread, "ERR11"},
      {"1064011UNO", "106400"},
      {"106501", "106500"},
      {bread, "100300"},  // A full receipt, paid in parts.
      {"102101000000200", "ERR20"},
      {"102101000000050", "102100"},
      {"105801RIGA                       ", "105800"},
      {"102101000000101", "ERR20"},
      {"105001", "105000"},
      {"102101000000010", "ERR11"},
      {bread, "100300"},
      {bread, "ERR2323"},
      {"103601000000100", "103600"},
      {"102801", "ERR11"},
      {"103601000000500", "103600"},
      {bread, "ERR01", Step::kPaperEnds},
      {bread, "ERR01"},
      {"114901", "114900"},
      {"103601000000000", "ERR01", Step::kPaperEnds},
      {"321701", "ERR01"},
      {"114901", "114900"},
      {"200101", "200100"},
      {"300101", "300100"},
      {"300101", "300100"},
      {"405201001" + std::string(112, '0'), "405200"},
      {"106701"
       "05PER DOMANI",
       "106700"},
      {bread, "100300"},  // Left open at the end.
      {"420100", "42011711260022"},
  };
}

/// What shows how a register has worked.
struct Life {
  std::vector<std::string> replies;
  std::string paper;
  RegisterState state;
};

/// The day with a new start after the step of this number.
Life LiveDay(std::size_t restartAfter) {
  const RegisterProfile profile{.receiptCapacity = 5, .clockAhead = 15h};
  VirtualClock clock;
  PaperRoll paper;
  std::string kept;
  std::optional<SimulatedRegister> device;
  const auto start = [&](std::optional<RegisterState> remembered) {
    device.emplace(clock, paper, profile, std::move(remembered));
    device->SetKeeper([&](const RegisterState& state) { kept = StateFileText({.state = state}); });
  };
  start({});
  Life life;
  const std::vector<Step> day = Day();
  for (std::size_t i = 0; i < day.size(); ++i) {
    if (day[i].before == Step::kPaperEnds) device->RunOutOfPaper(Paper::kJournal);
    if (day[i].before == Step::kPcClockIsSet) clock.SetTimeOfDay(20, 0, 0);
    life.replies.push_back(device->Execute(day[i].command));
    clock.Advance(42s);
    if (i == restartAfter) start(ParseStateFile("cassa.state", kept).state);
  }
  life.paper = paper.Text();
  life.state = device->State();
  return life;
}

TEST(RegisterRestart, TheDayIsTheSameWhereverItIsInterrupted) {
  const Life whole = LiveDay(kNever);
  std::vector<std::string> replies;
  for (const Step& step : Day()) replies.push_back(step.reply);
  ASSERT_EQ(whole.replies, replies);
  for (std::size_t step = 0; step < Day().size(); ++step) {
    const Life interrupted = LiveDay(step);
    EXPECT_EQ(interrupted.replies, whole.replies) << "restart after step " << step;
    EXPECT_EQ(interrupted.paper, whole.paper) << "restart after step " << step;
    EXPECT_EQ(interrupted.state, whole.state) << "restart after step " << step;
  }
}

struct RestartedRegister : testing::Test {
  VirtualClock clock;
  PaperRoll paper;
};

TEST_F(RestartedRegister, HasTheModelAndTheCapacityOfTheLaterScript) {
  SimulatedRegister before(clock, paper);
  before.Execute(ItemCommand("1003", "PANE", 1000, 150));
  SimulatedRegister later(clock, paper, {.model = "  TOVEST 8", .receiptCapacity = 1}, before.State());
  EXPECT_EQ(later.Execute("199900"), "199900  TOVEST 8  01.00.00");
  EXPECT_EQ(later.Execute(ItemCommand("1003", "LATTE", 1000, 150)), "ERR2323");
  EXPECT_EQ(later.Execute("103601000000000"), "103600");
}

TEST_F(RestartedRegister, EndsAShorterRollAtItsNextLine) {
  SimulatedRegister before(clock, paper, {.rollLines = 100});
  before.Execute(ItemCommand("1003", "PANE", 1000, 150));
  SimulatedRegister later(clock, paper, {.rollLines = 2}, before.State());
  EXPECT_EQ(later.Execute("106601UNO             "), "ERR02");
}

TEST_F(RestartedRegister, KeepsItsOwnClock) {
  SimulatedRegister before(clock, paper, {.clockAhead = 2h});
  clock.Advance(1h);
  SimulatedRegister later(clock, paper, {.clockAhead = 5h}, before.State());
  EXPECT_EQ(later.Execute("420100"), "42011611261200");
}

TEST_F(RestartedRegister, ItsClockDoesNotDriftOverManyStarts) {
  RegisterState state;
  for (int start = 0; start < 100; ++start) {
    SimulatedRegister device(clock, paper, {}, state);
    device.SetKeeper([&](const RegisterState& kept) { state = kept; });
    clock.Advance(1600ms);
    device.Execute("199900");
  }
  EXPECT_EQ(state.clockAhead, 0s);
}

TEST_F(RestartedRegister, RefusedCommandsAreReportedToo) {
  SimulatedRegister device(clock, paper);
  int kept = 0;
  device.SetKeeper([&](const RegisterState&) { ++kept; });
  device.Execute("999900");
  device.Execute("199900");
  EXPECT_EQ(kept, 2);
}

}  // namespace
}  // namespace orvenza::test
