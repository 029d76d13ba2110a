#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lab/replay/trace_events.h"
#include "lab/replay/work_span.h"

namespace orvenza {

/// A scenario for `orvenza-lab rehearse` in which the connector sees what it saw in the trace: the tickets,
/// the register's replies, the operator's answers, the files that were in use. With `around`, only the
/// tickets at work around that time, on the day when something was nearest to it. `name` is the trace's. What
/// cannot be repeated is a comment in the scenario. Never fails, whatever the events.
std::string ReplayScenario(const std::vector<TracedEvent>& events, const std::string& name,
                           std::optional<TimeOfDay> around = {});

}  // namespace orvenza
