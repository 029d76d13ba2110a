#pragma once

#include <string>
#include <vector>

#include "lab/replay/trace_events.h"
#include "lab/replay/work_span.h"
#include "platform/clock.h"

namespace orvenza {

/// What the simulated register and its line must do to answer as in a trace.
struct LineFaults {
  std::vector<std::string> lines;     ///< Lines of a simulator's script.
  std::vector<std::string> comments;  ///< What cannot be repeated.
};

/// Compares the replies in a part of `events` with those of a simulated register, and describes the
/// differences. `clock` is what the PC's clock shows at the start.
LineFaults FindLineFaults(const std::vector<TracedEvent>& events, const WorkSpan& span,
                          const LocalTime& clock);

}  // namespace orvenza
