#pragma once

#include <array>
#include <cstdint>
#include <ctime>

#include "platform/clock.h"

namespace orvenza {

/// Converts the system's calendar time.
LocalTime FromCalendar(const std::tm& calendar);

/// The start of a second of local time on `date`. The time of day in `date` is ignored, its daylight saving
/// flag included.
timespec AtTimeOfDay(std::tm date, int hour, int minute, int second);

/// Converts the many file times of a folder to local time. It asks the system for the UTC offset once per day
/// instead of once per file. Create one per listing, so that a change of the time zone is noticed.
class LocalTimes {
 public:
  /// `seconds` are counted from 1 January 1970 UTC. Times outside the years 2 to 9998 are clamped: dates are
  /// shown with four digits.
  LocalTime Of(std::int64_t seconds);

 private:
  struct Day {
    std::int64_t number = INT64_MIN;
    std::int64_t offset = 0;
    bool wholeDay = false;  ///< False when the offset changes during the day.
  };

  std::int64_t OffsetAt(std::int64_t seconds);

  std::array<Day, 64> days_;
};

}  // namespace orvenza
