#pragma once

#include <array>
#include <cstdint>
#include <ctime>

#include "platform/clock.h"

namespace orvenza {

/// A broken-down calendar time of the system.
LocalTime FromCalendar(const std::tm& calendar);

/// The start of a second of local time on `date`, whose own time of day does not matter: not even whether
/// daylight saving time held then.
timespec AtTimeOfDay(std::tm date, int hour, int minute, int second);

/// Turns the many file times of a folder into local time, asking the system for the offset from universal
/// time once a day of file times instead of once a file. Made anew for each listing, so that a change of the
/// time zone is seen.
class LocalTimes {
 public:
  /// `seconds` since 1 January 1970, universal time. Times outside the years 2 to 9998 become the nearest
  /// limit: dates are shown with four digits.
  LocalTime Of(std::int64_t seconds);

 private:
  struct Day {
    std::int64_t number = INT64_MIN;
    std::int64_t offset = 0;
    bool wholeDay = false;  ///< False on a day in which the offset changes.
  };

  std::int64_t OffsetAt(std::int64_t seconds);

  std::array<Day, 64> days_;
};

}  // namespace orvenza
