#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "lab/replay/trace_events.h"
#include "lab/replay/work_span.h"

namespace orvenza {

/// The logos that were sent in a part of a trace: the number of rows by the path in the ticket. Of a logo
/// that was not sent to its end, the rows that were.
std::map<std::string, int> FindLogos(const std::vector<TracedEvent>& events, const WorkSpan& span,
                                     char separator);

}  // namespace orvenza
