#pragma once

#include <string>
#include <string_view>

#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// An event as the transcript shows it: the kind of event, and what it says.
std::string_view EventKindText(const ScenarioEvent& event);
std::string EventText(const ScenarioEvent& event);

}  // namespace orvenza
