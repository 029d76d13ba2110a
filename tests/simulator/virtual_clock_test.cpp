#include "simulator/virtual_clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/system_error.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

TEST(VirtualClock, StartsAtItsDateWithoutUptime) {
  VirtualClock clock({2026, 11, 16, 9, 0, 0});
  EXPECT_EQ(clock.Uptime(), 0ns);
  EXPECT_EQ(clock.Stamp(clock.Now()), "16/11/2026 09:00:00");
}

TEST(VirtualClock, StandsStillUntilSomethingWaits) {
  VirtualClock clock;
  clock.After(5ms, [] {});
  clock.Dispatch();
  EXPECT_EQ(clock.Uptime(), 0ns);
}

TEST(VirtualClock, WaitsItsWholeLimitWhenNothingIsScheduled) {
  VirtualClock clock;
  clock.WaitForEvent(10ms);
  EXPECT_EQ(clock.Uptime(), 10ms);
}

TEST(VirtualClock, JumpsToTheNextDueActionAndNoFurther) {
  VirtualClock clock;
  std::vector<std::string> ran;
  clock.After(700ms, [&] { ran.push_back("later"); });
  clock.After(300ms, [&] { ran.push_back("first"); });
  clock.After(300ms, [&] { ran.push_back("second"); });
  clock.WaitForEvent(1h);
  EXPECT_EQ(clock.Uptime(), 300ms);
  EXPECT_EQ(ran, (std::vector<std::string>{"first", "second"}));
}

TEST(VirtualClock, DoesNotReachAnActionBeyondTheLimit) {
  VirtualClock clock;
  bool ran = false;
  clock.After(11ms, [&] { ran = true; });
  clock.WaitForEvent(10ms);
  EXPECT_FALSE(ran);
  clock.WaitForEvent(10ms);
  EXPECT_TRUE(ran);
  EXPECT_EQ(clock.Uptime(), 11ms);
}

TEST(VirtualClock, SkipsTheSlicesThatEndBeforeTheNextAction) {
  VirtualClock clock;
  bool ran = false;
  clock.After(35ms, [&] { ran = true; });
  clock.SkipIdle(10ms, 1h);
  EXPECT_EQ(clock.Uptime(), 30ms);
  EXPECT_FALSE(ran);
  clock.SkipIdle(10ms, 1h);
  EXPECT_EQ(clock.Uptime(), 30ms);
}

TEST(VirtualClock, SkipsTheSlicesThatEndBeforeTheMomentThatMatters) {
  VirtualClock clock;
  clock.SkipIdle(10ms, 45ms);
  EXPECT_EQ(clock.Uptime(), 40ms);
  clock.SkipIdle(10ms, 60ms);
  EXPECT_EQ(clock.Uptime(), 50ms);
  clock.SkipIdle(10ms, 20ms);
  EXPECT_EQ(clock.Uptime(), 50ms);
}

TEST(VirtualClock, DispatchRunsWhatIsDueAlready) {
  VirtualClock clock;
  int ran = 0;
  clock.After(0ms, [&] { ++ran; });
  clock.After(1ms, [&] { ++ran; });
  clock.Dispatch();
  EXPECT_EQ(ran, 1);
}

TEST(VirtualClock, AnActionThatRepeatsItselfDoesNotHoldTheDelivery) {
  VirtualClock clock;
  int ran = 0;
  std::function<void()> again = [&] {
    ++ran;
    clock.After(0ms, again);
  };
  clock.After(0ms, again);
  clock.Dispatch();
  EXPECT_EQ(ran, 1);
  clock.WaitForEvent(10ms);
  EXPECT_EQ(ran, 2);
  EXPECT_EQ(clock.Uptime(), 0ms);
}

TEST(VirtualClock, AnActionMayWaitForAnother) {
  VirtualClock clock;
  std::vector<std::string> ran;
  clock.After(10ms, [&] {
    ran.push_back("outer begins");
    clock.WaitForEvent(1s);
    ran.push_back("outer ends");
  });
  clock.After(30ms, [&] { ran.push_back("inner"); });
  clock.WaitForEvent(1s);
  EXPECT_EQ(ran, (std::vector<std::string>{"outer begins", "inner", "outer ends"}));
  EXPECT_EQ(clock.Uptime(), 30ms);
}

TEST(VirtualClock, AnActionThatThrowsIsDoneWith) {
  VirtualClock clock;
  int ran = 0;
  clock.After(1ms, [&] {
    ++ran;
    throw std::runtime_error("broken");
  });
  clock.After(2ms, [&] { ran += 10; });
  EXPECT_THROW(clock.WaitForEvent(1s), std::runtime_error);
  clock.WaitForEvent(1s);
  EXPECT_EQ(ran, 11);
}

TEST(VirtualClock, AWaitWithoutLimitReturns) {
  VirtualClock clock;
  clock.WaitForEvent(1s);
  clock.WaitForEvent(std::chrono::nanoseconds::max());
  EXPECT_EQ(clock.Uptime(), std::chrono::nanoseconds::max());
  clock.After(std::chrono::nanoseconds::max(), [] {});
  clock.WaitForEvent(1s);
  EXPECT_EQ(clock.Uptime(), std::chrono::nanoseconds::max());
}

TEST(VirtualClock, TakesANegativeTimeAsNone) {
  VirtualClock clock;
  bool ran = false;
  clock.After(-5ms, [&] { ran = true; });
  clock.WaitForEvent(-1ms);
  EXPECT_TRUE(ran);
  EXPECT_EQ(clock.Uptime(), 0ms);
}

TEST(VirtualClock, AdvanceRunsEveryActionAtItsOwnMoment) {
  VirtualClock clock;
  std::vector<std::string> ran;
  for (const auto delay : {20ms, 50ms, 51ms}) {
    clock.After(delay, [&] { ran.push_back(std::to_string(clock.Uptime() / 1ms)); });
  }
  clock.Advance(50ms);
  EXPECT_EQ(ran, (std::vector<std::string>{"20", "50"}));
  EXPECT_EQ(clock.Uptime(), 50ms);
}

TEST(VirtualClock, RollsOverAtMidnight) {
  VirtualClock clock({2026, 12, 31, 23, 59, 59});
  clock.WaitForEvent(500ms);
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 86399.5);
  clock.WaitForEvent(750ms);
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 0.25);
  EXPECT_EQ(clock.Stamp(clock.Now()), "01/01/2027 00:00:00");
}

TEST(VirtualClock, KnowsTheCalendar) {
  VirtualClock clock({2028, 2, 28, 12, 0, 0});
  clock.WaitForEvent(24h);
  EXPECT_EQ(clock.Stamp(clock.Now()), "29/02/2028 12:00:00");
  clock.WaitForEvent(24h);
  EXPECT_EQ(clock.Stamp(clock.Now()), "01/03/2028 12:00:00");
}

TEST(VirtualClock, SettingTheTimeMovesTheWallClockOnly) {
  VirtualClock clock({2026, 11, 16, 9, 0, 0});
  clock.WaitForEvent(1500ms);
  clock.SetTimeOfDay(10, 30, 15);
  EXPECT_EQ(clock.Uptime(), 1500ms);
  EXPECT_DOUBLE_EQ(clock.SecondsSinceMidnight(), 37815.0);
  clock.WaitForEvent(2s);
  EXPECT_EQ(clock.Stamp(clock.Now()), "16/11/2026 10:30:17");
  EXPECT_EQ(clock.TimesSet(), (std::vector<LocalTime>{{2026, 11, 16, 10, 30, 15}}));
}

int NumberOfRefusal(VirtualClock& clock, int hour, int minute, int second) {
  try {
    clock.SetTimeOfDay(hour, minute, second);
  } catch (const SystemError& error) {
    return error.Number();
  }
  return 0;
}

TEST(VirtualClock, RefusesToBeSetWhenToldTo) {
  VirtualClock clock({2026, 11, 16, 9, 0, 0});
  clock.RefuseSetTime(true);
  EXPECT_EQ(NumberOfRefusal(clock, 10, 0, 0), 70);
  EXPECT_EQ(clock.Stamp(clock.Now()), "16/11/2026 09:00:00");
  EXPECT_TRUE(clock.TimesSet().empty());
  clock.RefuseSetTime(false);
  EXPECT_EQ(NumberOfRefusal(clock, 10, 0, 0), 0);
}

TEST(VirtualClock, RefusesATimeThatDoesNotExist) {
  VirtualClock clock;
  const LocalTime wrong[] = {{1, 1, 1, 24, 0, 0}, {1, 1, 1, -1, 0, 0}, {1, 1, 1, 0, 60, 0},
                             {1, 1, 1, 0, -1, 0}, {1, 1, 1, 0, 0, 60}, {1, 1, 1, 0, 0, -1}};
  for (const auto& time : wrong) {
    EXPECT_EQ(NumberOfRefusal(clock, time.hour, time.minute, time.second), 51) << clock.Stamp(time);
  }
  EXPECT_EQ(NumberOfRefusal(clock, 23, 59, 59), 0);
  EXPECT_EQ(NumberOfRefusal(clock, 0, 0, 0), 0);
}

}  // namespace
}  // namespace orvenza
