#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "app/trace/trace_time.h"

namespace orvenza {

/// A line of a trace, with the lines of a file below it.
struct TracedEvent {
  TraceTime at;                        ///< What the PC's clock showed.
  std::chrono::milliseconds passed{};  ///< Since the first line, however the clock was set.
  std::string kind;  ///< As in the trace; "gap" where lines are missing or cannot be understood.
  std::string text;
  std::vector<std::string> lines;  ///< In the form of a scenario's content.
};

/// Reads a trace, the text of one file or of several, oldest first. Never fails: what is no line of a trace
/// becomes an event "gap" that says where.
std::vector<TracedEvent> ReadTrace(std::string_view text);

}  // namespace orvenza
