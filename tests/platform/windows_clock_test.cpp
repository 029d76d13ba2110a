#include "platform/windows/windows_clock.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/failure_of.h"
#include "platform/windows/local_times.h"
#include "platform/windows/wide.h"

namespace orvenza::test {
namespace {

/// The user's format for dates or times, such as "dd/MM/yyyy".
std::wstring Picture(LCTYPE which) {
  wchar_t text[100] = L"";
  ::GetLocaleInfoW(LOCALE_USER_DEFAULT, which, text, 100);
  return text;
}

TEST(LocalTimeDigits, AreZeroPadded) {
  EXPECT_EQ(DateDigits({2026, 3, 5, 1, 2, 3}), "20260305");
  EXPECT_EQ(TimeDigits({2026, 3, 5, 1, 2, 3}), "010203");
  EXPECT_EQ(DateDigits({}), "18991230");
  EXPECT_EQ(TimeDigits({2026, 11, 15, 23, 59, 10}), "235910");
}

TEST(WindowsClock, StampsInTheUsersShortFormats) {
  SYSTEMTIME time{};
  time.wYear = 2026;
  time.wMonth = 11;
  time.wDay = 15;
  time.wHour = 13;
  time.wMinute = 45;
  time.wSecond = 10;
  wchar_t date[100] = L"";
  wchar_t clock[100] = L"";
  ::GetDateFormatW(LOCALE_USER_DEFAULT, 0, &time, Picture(LOCALE_SSHORTDATE).c_str(), date, 100);
  ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, Picture(LOCALE_STIMEFORMAT).c_str(), clock, 100);
  EXPECT_EQ(WindowsClock().Stamp({2026, 11, 15, 13, 45, 10}), ToUtf8(date) + " " + ToUtf8(clock));
}

TEST(WindowsClock, StampsInAFixedLayoutWhatTheSystemCannotShow) {
  EXPECT_EQ(WindowsClock().Stamp({1500, 3, 5, 1, 2, 3}), "05/03/1500 01:02:03");
}

TEST(WindowsClock, TellsLocalTime) {
  SYSTEMTIME before{};
  SYSTEMTIME after{};
  LocalTime now;
  do {  // Repeated if a second ended in between.
    ::GetLocalTime(&before);
    now = WindowsClock().Now();
    ::GetLocalTime(&after);
  } while (before.wSecond != after.wSecond);
  EXPECT_EQ(now, (LocalTime{before.wYear, before.wMonth, before.wDay, before.wHour, before.wMinute,
                            before.wSecond}));
}

TEST(WindowsClock, CountsSecondsFromLocalMidnight) {
  const WindowsClock clock;
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

TEST(WindowsClock, UptimeNeverGoesBack) {
  const WindowsClock clock;
  const auto first = clock.Uptime();
  EXPECT_GT(first.count(), 0);
  EXPECT_GE(clock.Uptime(), first);
}

TEST(TimeOfDay, IsPutOnTheDateItIsGiven) {
  const SYSTEMTIME date{2026, 11, 6, 21, 12, 45, 30, 999};  // A Saturday.
  const SYSTEMTIME time = AtTimeOfDay(date, 23, 59, 58);
  EXPECT_EQ(FromSystemTime(time), (LocalTime{2026, 11, 21, 23, 59, 58}));
  EXPECT_EQ(time.wDayOfWeek, 6);
  EXPECT_EQ(time.wMilliseconds, 0);
}

TEST(WindowsClock, RefusesATimeOfDayThatDoesNotExist) {
  const int rows[][3] = {{24, 0, 0}, {-1, 0, 0}, {0, 60, 0}, {0, -1, 0}, {0, 0, 60}, {0, 0, -1}};
  for (const auto& row : rows) {
    EXPECT_EQ(FailureOf([&] { WindowsClock().SetTimeOfDay(row[0], row[1], row[2]); }),
              "51 " + std::string(StandardDescription(51)));
  }
}

}  // namespace
}  // namespace orvenza::test
