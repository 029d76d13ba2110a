#include "simulator/calendar.h"

namespace orvenza {

using std::chrono::floor;

namespace {

std::chrono::sys_seconds MomentOf(const LocalTime& time) {
  const std::chrono::year_month_day date{std::chrono::year(time.year),
                                         std::chrono::month(static_cast<unsigned>(time.month)),
                                         std::chrono::day(static_cast<unsigned>(time.day))};
  return std::chrono::sys_days(date) + std::chrono::hours(time.hour) + std::chrono::minutes(time.minute) +
         std::chrono::seconds(time.second);
}

}  // namespace

LocalTime Later(const LocalTime& time, std::chrono::seconds delay) {
  const auto moment = MomentOf(time) + delay;
  const auto midnight = floor<std::chrono::days>(moment);
  const std::chrono::year_month_day laterDate(midnight);
  const std::chrono::hh_mm_ss laterTime(moment - midnight);
  return {static_cast<int>(laterDate.year()),
          static_cast<int>(static_cast<unsigned>(laterDate.month())),
          static_cast<int>(static_cast<unsigned>(laterDate.day())),
          static_cast<int>(laterTime.hours().count()),
          static_cast<int>(laterTime.minutes().count()),
          static_cast<int>(laterTime.seconds().count())};
}

std::chrono::seconds TimeBetween(const LocalTime& start, const LocalTime& time) {
  return MomentOf(time) - MomentOf(start);
}

}  // namespace orvenza
