#pragma once

#include <string>
#include <string_view>

#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// Reads a scenario; docs/rehearsal.md describes its form. `name` is for messages. Throws ScriptError.
Scenario ParseScenario(const std::string& name, std::string_view text);

}  // namespace orvenza
