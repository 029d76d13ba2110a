#pragma once

#include <string>
#include <string_view>

#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// The transcript's form of an event: its kind and its text.
std::string_view EventKindText(const ScenarioEvent& event);
std::string EventText(const ScenarioEvent& event);

}  // namespace orvenza
