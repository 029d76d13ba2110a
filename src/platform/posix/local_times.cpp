#include "platform/posix/local_times.h"

#include <algorithm>
#include <chrono>

namespace orvenza {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

using std::chrono::sys_days;

constexpr std::int64_t SecondsOf(sys_days day) { return day.time_since_epoch().count() * kSecondsPerDay; }

constexpr std::int64_t kEarliest = SecondsOf(std::chrono::year{2} / 1 / 1);
constexpr std::int64_t kLatest = SecondsOf(std::chrono::year{9998} / 12 / 31);

constexpr std::int64_t DayOf(std::int64_t seconds) {
  return (seconds >= 0 ? seconds : seconds - kSecondsPerDay + 1) / kSecondsPerDay;
}

std::int64_t SystemOffset(std::int64_t seconds) {
  const std::time_t time = static_cast<std::time_t>(seconds);
  std::tm calendar{};
  return ::localtime_r(&time, &calendar) == nullptr ? 0 : calendar.tm_gmtoff;
}

}  // namespace

LocalTime FromCalendar(const std::tm& calendar) {
  return {calendar.tm_year + 1900, calendar.tm_mon + 1, calendar.tm_mday,
          calendar.tm_hour,        calendar.tm_min,     calendar.tm_sec};
}

timespec AtTimeOfDay(std::tm date, int hour, int minute, int second) {
  date.tm_hour = hour;
  date.tm_min = minute;
  date.tm_sec = second;
  date.tm_isdst = -1;
  return {.tv_sec = std::mktime(&date), .tv_nsec = 0};
}

LocalTime LocalTimes::Of(std::int64_t seconds) {
  seconds = std::clamp(seconds, kEarliest, kLatest);
  const std::int64_t local = seconds + OffsetAt(seconds);
  const std::int64_t day = DayOf(local);
  const std::chrono::year_month_day date{sys_days{std::chrono::days{day}}};
  const int second = static_cast<int>(local - day * kSecondsPerDay);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          second / 3600,
          second / 60 % 60,
          second % 60};
}

std::int64_t LocalTimes::OffsetAt(std::int64_t seconds) {
  const std::int64_t number = DayOf(seconds);
  Day& day = days_[static_cast<std::uint64_t>(number) % days_.size()];
  if (day.number != number) {
    const std::int64_t start = number * kSecondsPerDay;
    day.number = number;
    day.offset = SystemOffset(start);
    day.wholeDay = SystemOffset(start + kSecondsPerDay - 1) == day.offset;
  }
  return day.wholeDay ? day.offset : SystemOffset(seconds);
}

}  // namespace orvenza
