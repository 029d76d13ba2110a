#pragma once

#include <windows.h>

#include "platform/clock.h"

namespace orvenza {

LocalTime FromSystemTime(const SYSTEMTIME& time);

/// Converts a file time (UTC) to local time; the date zero if the system cannot convert it. Times after the
/// year 9998 are clamped to the start of its last day, UTC: dates are shown with four digits.
LocalTime FromFileTime(const FILETIME& time);

/// The start of a second on `date`, whose own time of day is ignored.
SYSTEMTIME AtTimeOfDay(SYSTEMTIME date, int hour, int minute, int second);

}  // namespace orvenza
