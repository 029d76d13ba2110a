#pragma once

#include <windows.h>

#include "platform/clock.h"

namespace orvenza {

LocalTime FromSystemTime(const SYSTEMTIME& time);

/// A file time (universal) in local time; the date zero where the system cannot convert it. Times after the
/// year 9998 become the beginning of its last day, universal: dates are shown with four digits.
LocalTime FromFileTime(const FILETIME& time);

/// The start of a second on `date`, whose own time of day does not matter.
SYSTEMTIME AtTimeOfDay(SYSTEMTIME date, int hour, int minute, int second);

}  // namespace orvenza
