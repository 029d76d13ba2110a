#pragma once

#include <chrono>

#include "platform/clock.h"

namespace orvenza {

/// The date and time `delay` after `time`, which must be a valid one.
LocalTime Later(const LocalTime& time, std::chrono::seconds delay);

}  // namespace orvenza
