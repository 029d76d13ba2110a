#include "app/trace/trace_time.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "simulator/calendar.h"

namespace orvenza {
namespace {

using namespace std::chrono;

constexpr std::string_view kForm = "99/99/9999 99:99:99.999";

sys_days DayOf(const LocalTime& time) {
  return sys_days(year(time.year) / month(static_cast<unsigned>(time.month)) /
                  day(static_cast<unsigned>(time.day)));
}

/// In microseconds, for the fraction of a second is not exact.
sys_time<microseconds> Wall(const Clock& clock) {
  const LocalTime now = clock.Now();
  const auto ofDay = microseconds(std::llround(clock.SecondsSinceMidnight() * 1e6));
  const auto wall = DayOf(now) + ofDay;
  // Midnight may have come between the two questions.
  return wall + 12h < TraceTimeOf(now) ? wall + 24h : wall;
}

bool HasForm(std::string_view text) {
  if (text.size() != kForm.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '9' ? !digit : text[i] != kForm[i]) return false;
  }
  return true;
}

}  // namespace

TraceTime WallTime(const Clock& clock) { return floor<milliseconds>(Wall(clock)); }

LocalTime LocalTimeOf(TraceTime time) {
  return Later({1970, 1, 1, 0, 0, 0}, floor<seconds>(time.time_since_epoch()));
}

TraceTime TraceTimeOf(const LocalTime& time) {
  return DayOf(time) + hours(time.hour) + minutes(time.minute) + seconds(time.second);
}

std::string TraceStamp(TraceTime time) {
  char fraction[16];
  const auto rest = time - floor<seconds>(time);
  std::snprintf(fraction, sizeof fraction, ".%03d", static_cast<int>(rest.count()));
  return FixedStamp(LocalTimeOf(time)) + fraction;
}

std::optional<TraceTime> ReadTraceStamp(std::string_view text) {
  if (!HasForm(text)) return std::nullopt;
  const auto number = [&](std::size_t at, std::size_t count) {
    int value = 0;
    std::from_chars(text.data() + at, text.data() + at + count, value);
    return value;
  };
  const LocalTime time{number(6, 4), number(3, 2), number(0, 2), number(11, 2), number(14, 2), number(17, 2)};
  const bool exists = year_month_day(year(time.year), month(static_cast<unsigned>(time.month)),
                                     day(static_cast<unsigned>(time.day)))
                          .ok() &&
                      time.hour < 24 && time.minute < 60 && time.second < 60;
  if (!exists) return std::nullopt;
  return TraceTimeOf(time) + milliseconds(number(20, 3));
}

TraceClock::TraceClock(const Clock& clock) : clock_(clock), uptime_(clock.Uptime()), wall_(Wall(clock)) {}

TraceTime TraceClock::Now() const { return floor<milliseconds>(wall_ + (clock_.Uptime() - uptime_)); }

std::optional<TraceTime> TraceClock::Jump(bool set) {
  const TraceTime shown = WallTime(clock_);
  if (!set && abs(shown - Now()) <= 1s) return std::nullopt;
  uptime_ = clock_.Uptime();
  wall_ = Wall(clock_);
  return Now();
}

}  // namespace orvenza
