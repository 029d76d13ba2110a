#include "simulator/paced_time.h"

#include <gtest/gtest.h>

#include <chrono>

#include "core/event_loop.h"
#include "core/poll_timer.h"
#include "support/test_clock.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

/// The system's time is virtual and has run for a while.
struct PacedTimeTest : testing::Test {
  PacedTimeTest() { system.Advance(1h); }

  /// What of the system's time `action` takes.
  template <typename Action>
  std::chrono::nanoseconds Taken(Action action) {
    const auto start = system.Uptime();
    action();
    return system.Uptime() - start;
  }

  test::TestClock system{{2026, 11, 16, 9, 0, 0}};
  PacedTime time{{system, system, system}, 20};
};

TEST_F(PacedTimeTest, TheUptimeRunsFaster) {
  const auto start = time.Uptime();
  system.Advance(3s);
  EXPECT_EQ(time.Uptime() - start, 60s);
}

TEST_F(PacedTimeTest, TheUptimeFitsYearsOfThePC) {
  VirtualClock old;
  old.Stall(24h * 365 * 100);
  PacedTime fast({old, old, old}, 100);
  old.Stall(1s);
  EXPECT_EQ(fast.Uptime(), 100s);
}

TEST_F(PacedTimeTest, DateAndTimeOfDayAreThoseOfThePC) {
  system.Advance(61s);
  EXPECT_EQ(time.Stamp(time.Now()), "16/11/2026 10:01:01");
  EXPECT_EQ(time.SecondsSinceMidnight(), 10 * 3600 + 61);
  time.SetTimeOfDay(11, 30, 0);
  EXPECT_EQ(system.Stamp(system.Now()), "16/11/2026 11:30:00");
}

TEST_F(PacedTimeTest, AWaitEndsSooner) {
  EXPECT_EQ(Taken([&] { time.WaitForEvent(100ms); }), 5ms);
}

TEST_F(PacedTimeTest, AnActionComesSoonerAndEndsAWait) {
  bool ran = false;
  time.After(60ms, [&] { ran = true; });
  EXPECT_EQ(Taken([&] { time.WaitForEvent(59ms); }), 2950us);
  EXPECT_FALSE(ran);
  EXPECT_EQ(Taken([&] { time.WaitForEvent(1s); }), 50us);
  EXPECT_TRUE(ran);
}

TEST_F(PacedTimeTest, AnActionWithoutDelayComesAtTheNextDelivery) {
  bool ran = false;
  time.After(0s, [&] { ran = true; });
  EXPECT_FALSE(ran);
  time.Dispatch();
  EXPECT_TRUE(ran);
}

TEST_F(PacedTimeTest, APauseThatCannotBeDividedLastsItsWholeTime) {
  PacedTime seventh({system, system, system}, 7);
  EventLoop loop(seventh, seventh);
  const auto start = seventh.Uptime();
  EXPECT_EQ(Taken([&] { loop.Pause(500ms); }), 71'428'572ns);
  EXPECT_EQ(seventh.Uptime() - start, 500'000'004ns);
}

TEST_F(PacedTimeTest, TheProgramTicksFaster) {
  PollTimer timer(time);
  timer.SetEnabled(true);
  EXPECT_EQ(Taken([&] { time.WaitForEvent(timer.TimeLeft()); }), 25ms);
  EXPECT_EQ(timer.TimeLeft(), 0s);
}

}  // namespace
}  // namespace orvenza
