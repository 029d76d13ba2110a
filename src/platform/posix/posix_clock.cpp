#include "platform/posix/posix_clock.h"

#include <algorithm>
#include <ctime>

#include "platform/posix/local_times.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

timespec TimeNow(clockid_t clock) {
  timespec time{};
  ::clock_gettime(clock, &time);
  return time;
}

std::tm CalendarOf(std::time_t seconds) {
  std::tm calendar{};
  ::localtime_r(&seconds, &calendar);
  calendar.tm_sec = std::min(calendar.tm_sec, 59);  // A leap second counts as the second before it.
  return calendar;
}

}  // namespace

LocalTime PosixClock::Now() const { return FromCalendar(CalendarOf(TimeNow(CLOCK_REALTIME).tv_sec)); }

double PosixClock::SecondsSinceMidnight() const {
  const timespec now = TimeNow(CLOCK_REALTIME);
  const std::tm calendar = CalendarOf(now.tv_sec);
  const int seconds = (calendar.tm_hour * 60 + calendar.tm_min) * 60 + calendar.tm_sec;
  return seconds + static_cast<double>(now.tv_nsec) / 1e9;
}

std::chrono::nanoseconds PosixClock::Uptime() const {
  const timespec time = TimeNow(CLOCK_MONOTONIC);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void PosixClock::SetTimeOfDay(int hour, int minute, int second) {
  const bool exists = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  if (!exists) throw SystemError(error_number::kInternalError);
  const timespec time = AtTimeOfDay(CalendarOf(TimeNow(CLOCK_REALTIME).tv_sec), hour, minute, second);
  if (::clock_settime(CLOCK_REALTIME, &time) != 0) throw SystemError(error_number::kPermissionDenied);
}

std::string PosixClock::Stamp(const LocalTime& time) const { return FixedStamp(time); }

}  // namespace orvenza
