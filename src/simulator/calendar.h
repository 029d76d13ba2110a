#pragma once

#include <chrono>

#include "platform/clock.h"

namespace orvenza {

/// The date and time `delay` after the valid `time`.
[[nodiscard]] LocalTime Later(const LocalTime& time, std::chrono::seconds delay);

/// How much later the valid `time` is than `start`; negative if it is earlier.
[[nodiscard]] std::chrono::seconds TimeBetween(const LocalTime& start, const LocalTime& time);

}  // namespace orvenza
