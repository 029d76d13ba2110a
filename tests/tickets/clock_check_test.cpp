#include "tickets/clock_check.h"

#include <gtest/gtest.h>

#include <string>

#include "simulator/virtual_clock.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

/// It is nine o'clock, and the clock is checked every 30 seconds with a tolerance of 60 seconds.
class ClockCheckTest : public ::testing::Test {
 protected:
  ClockCheckTest() {
    settings.ErrPath = "Err.txt";
    settings.PcTimeCorrection = 30;
    settings.TimeShift = 60;
  }

  /// How many ticks pass until a check is due, 0 when none is within 1000.
  int TicksUntilDue() {
    for (int tick = 1; tick <= 1000; ++tick) {
      if (check.CountTick()) return tick;
    }
    return 0;
  }

  void RegisterShows(const std::string& hhmm) { correction.Correct("4201161126" + hhmm); }

  VirtualClock clock;
  MemoryFiles files;
  AppSettings settings;
  Logs logs{files, clock, settings, "C:\\shop"};
  ClockCorrection correction{clock, settings, logs};
  ClockCheck check{settings, correction};
};

TEST_F(ClockCheckTest, IsDueAtThe61stTickAndThenEvery61) {
  EXPECT_EQ(TicksUntilDue(), 61);
  EXPECT_EQ(TicksUntilDue(), 61);
  EXPECT_EQ(TicksUntilDue(), 61);
}

TEST_F(ClockCheckTest, CountsTicksAndNotTime) {
  clock.Advance(1h);
  EXPECT_EQ(TicksUntilDue(), 61);
}

TEST_F(ClockCheckTest, IsDueWhenTheCountIsGreater) {
  settings.PcTimeCorrection = 0.5;
  EXPECT_EQ(TicksUntilDue(), 2);
  settings.PcTimeCorrection = 0.4;
  EXPECT_EQ(TicksUntilDue(), 1);
}

TEST_F(ClockCheckTest, IsNeverDueWhenSwitchedOff) {
  for (const double seconds : {0.0, -1.0}) {
    settings.PcTimeCorrection = seconds;
    EXPECT_EQ(TicksUntilDue(), 0);
  }
}

TEST_F(ClockCheckTest, ACorrectionStartsTheCountAgain) {
  for (int i = 0; i < 40; ++i) check.CountTick();
  RegisterShows("1400");
  EXPECT_EQ(TicksUntilDue(), 61);
}

TEST_F(ClockCheckTest, ACheckThatCorrectsNothingLetsTheCountGoOn) {
  for (int i = 0; i < 40; ++i) check.CountTick();
  RegisterShows("0900");
  EXPECT_EQ(TicksUntilDue(), 21);
}

TEST_F(ClockCheckTest, ARefusalLetsTheCountGoOn) {
  for (int i = 0; i < 40; ++i) check.CountTick();
  clock.RefuseSetTime(true);
  RegisterShows("1400");
  EXPECT_EQ(TicksUntilDue(), 21);
}

}  // namespace
}  // namespace orvenza::test
