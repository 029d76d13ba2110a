#include "tickets/clock_check.h"

#include <gtest/gtest.h>

#include <string>

#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

/// It is nine o'clock, and the clock is checked every 30 seconds with a tolerance of 60 seconds.
class ClockCheckTest : public DeviceBench {
 protected:
  ClockCheckTest() { settings.PcTimeCorrection = 30; }

  /// Number of ticks until a check is due; 0 when none is within 1000.
  int TicksUntilDue() {
    for (int tick = 1; tick <= 1000; ++tick) {
      if (check.CountTick()) return tick;
    }
    return 0;
  }

  void RegisterShows(const std::string& hhmm) { correction.Correct("4201161126" + hhmm); }

  ClockCheck check{settings, queries, correction};
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
  for (int i = 0; i < 40; ++i) EXPECT_FALSE(check.CountTick());
  RegisterShows("1400");
  EXPECT_EQ(TicksUntilDue(), 61);
}

TEST_F(ClockCheckTest, ACheckThatCorrectsNothingLetsTheCountGoOn) {
  for (int i = 0; i < 40; ++i) EXPECT_FALSE(check.CountTick());
  RegisterShows("0900");
  EXPECT_EQ(TicksUntilDue(), 21);
}

TEST_F(ClockCheckTest, ARefusalLetsTheCountGoOn) {
  for (int i = 0; i < 40; ++i) EXPECT_FALSE(check.CountTick());
  clock.RefuseSetTime(true);
  RegisterShows("1400");
  EXPECT_EQ(TicksUntilDue(), 21);
}

TEST_F(ClockCheckTest, ATickInWhichACheckIsDueAsksForStatusAndTime) {
  settings.PcTimeCorrection = 0.1;
  control.Reply("3217");
  control.Reply("42011611260930");
  check.Tick();
  EXPECT_EQ(Sent(), (Lines{"321700", "420100"}));
  EXPECT_EQ(clock.TimesSet(), (std::vector<LocalTime>{{2026, 11, 16, 9, 30, 0}}));
}

TEST_F(ClockCheckTest, TheTimeIsNotAskedForAfterAStatusThatFailed) {
  settings.PcTimeCorrection = 0.1;
  control.Reply("ERR08");
  check.Tick();
  EXPECT_EQ(Sent(), Lines{"321700"});
  EXPECT_EQ(Errors(), Lines{"ECR Error : ERR08"});
}

TEST_F(ClockCheckTest, NothingIsAskedInTheOtherTicks) {
  for (int tick = 1; tick <= 60; ++tick) check.Tick();
  EXPECT_EQ(Sent(), Lines{});
}

}  // namespace
}  // namespace orvenza::test
