#pragma once

#include <chrono>

#include "platform/clock.h"

namespace orvenza {

/// The date and time `delay` after the valid `time`.
[[nodiscard]] LocalTime Later(const LocalTime& time, std::chrono::seconds delay);

}  // namespace orvenza
