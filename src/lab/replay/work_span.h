#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

#include "lab/replay/trace_events.h"

namespace orvenza {

/// A time of day, as "--around" names it.
struct TimeOfDay {
  int hour = 0;
  int minute = 0;
};

/// The part of a trace that becomes a scenario.
struct WorkSpan {
  std::size_t first = 0;              ///< Its first event.
  std::size_t end = 0;                ///< The event behind its last.
  std::chrono::milliseconds start{};  ///< When the connector starts in the scenario, as TracedEvent::passed.
  bool atStart = true;                ///< The connector starts with the first event in the trace, too.
};

/// The whole trace; with `around`, the ticks with work in that minute or, if there are none, nearest to it,
/// on the day that is nearest. A start of the connector that comes directly before belongs to them. Empty if
/// there is nothing.
std::optional<WorkSpan> FindWork(const std::vector<TracedEvent>& events, std::optional<TimeOfDay> around);

}  // namespace orvenza
