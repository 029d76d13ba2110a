#include "platform/posix/posix_clock.h"

#include <gtest/gtest.h>

#include <ctime>

#include "platform/as_nobody.h"
#include "platform/failure_of.h"
#include "platform/posix/local_times.h"
#include "platform/time_zone.h"

namespace orvenza::test {
namespace {

TEST(LocalTimeDigits, AreZeroPadded) {
  EXPECT_EQ(DateDigits({2026, 3, 5, 1, 2, 3}), "20260305");
  EXPECT_EQ(TimeDigits({2026, 3, 5, 1, 2, 3}), "010203");
  EXPECT_EQ(DateDigits({}), "18991230");
  EXPECT_EQ(TimeDigits({2026, 11, 15, 23, 59, 10}), "235910");
}

TEST(PosixClock, StampsInAFixedLayout) {
  EXPECT_EQ(PosixClock().Stamp({2026, 11, 15, 13, 45, 10}), "15/11/2026 13:45:10");
  EXPECT_EQ(PosixClock().Stamp({2026, 3, 5, 1, 2, 3}), "05/03/2026 01:02:03");
}

TEST(PosixClock, TellsLocalTime) {
  const TimeZone zone("AAA-5:30");
  std::time_t before = 0;
  LocalTime now;
  do {  // Repeated if a second ended in between.
    before = std::time(nullptr);
    now = PosixClock().Now();
  } while (before != std::time(nullptr));
  const std::time_t shifted = before + (5 * 60 + 30) * 60;
  std::tm expected{};
  ::gmtime_r(&shifted, &expected);
  EXPECT_EQ(now, (LocalTime{expected.tm_year + 1900, expected.tm_mon + 1, expected.tm_mday, expected.tm_hour,
                            expected.tm_min, expected.tm_sec}));
}

TEST(PosixClock, CountsSecondsFromLocalMidnight) {
  const PosixClock clock;
  const auto secondsOf = [](const LocalTime& t) { return (t.hour * 60 + t.minute) * 60 + t.second; };
  LocalTime before;
  double seconds = 0;
  LocalTime after;
  do {  // Repeated if midnight came in between.
    before = clock.Now();
    seconds = clock.SecondsSinceMidnight();
    after = clock.Now();
  } while (before.day != after.day);
  EXPECT_GE(seconds, secondsOf(before));
  EXPECT_LT(seconds, secondsOf(after) + 1);
}

TEST(PosixClock, UptimeNeverGoesBack) {
  const PosixClock clock;
  const auto first = clock.Uptime();
  EXPECT_GT(first.count(), 0);
  EXPECT_GE(clock.Uptime(), first);
}

/// The calendar time `time`, in seconds since 1970.
std::tm CalendarAt(std::time_t seconds) {
  std::tm calendar{};
  ::localtime_r(&seconds, &calendar);
  return calendar;
}

TEST(TimeOfDay, IsPutOnTheDateItIsGiven) {
  const TimeZone zone("AAA-5:30");
  const timespec time = AtTimeOfDay(CalendarAt(1795245330), 23, 59, 58);  // 21 November 2026, 12:45:30.
  EXPECT_EQ(FromCalendar(CalendarAt(time.tv_sec)), (LocalTime{2026, 11, 21, 23, 59, 58}));
  EXPECT_EQ(time.tv_sec, 1795285798);
  EXPECT_EQ(time.tv_nsec, 0);
}

TEST(TimeOfDay, HasItsOwnSideOfAChangeOfTheOffset) {
  const TimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
  const std::time_t night = 1774742400;  // 29 March 2026, 01:00, an hour before daylight saving time.
  const std::time_t noon = night + 10 * 3600;
  ASSERT_EQ(FromCalendar(CalendarAt(night)), (LocalTime{2026, 3, 29, 1, 0, 0}));
  EXPECT_EQ(AtTimeOfDay(CalendarAt(night), 12, 0, 0).tv_sec, noon);
  EXPECT_EQ(AtTimeOfDay(CalendarAt(noon), 1, 0, 0).tv_sec, night);
}

TEST(PosixClock, RefusesATimeOfDayThatDoesNotExist) {
  const int rows[][3] = {{24, 0, 0}, {-1, 0, 0}, {0, 60, 0}, {0, -1, 0}, {0, 0, 60}, {0, 0, -1}};
  for (const auto& row : rows) {
    EXPECT_EQ(FailureOf([&] { PosixClock().SetTimeOfDay(row[0], row[1], row[2]); }),
              "51 " + std::string(StandardDescription(51)));
  }
}

TEST(PosixClock, CannotBeSetWithoutTheRight) {
  const std::string failure = AsNobody([] {
    const LocalTime now = PosixClock().Now();
    return FailureOf([&] { PosixClock().SetTimeOfDay(now.hour, now.minute, now.second); });
  });
  EXPECT_EQ(failure, "70 Permission denied");
}

}  // namespace
}  // namespace orvenza::test
