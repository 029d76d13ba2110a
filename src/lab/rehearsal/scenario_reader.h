#pragma once

#include <string>
#include <string_view>

#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// Parses a scenario; docs/rehearsal.md describes its format. `name` is for messages. Throws ScriptError.
Scenario ParseScenario(const std::string& name, std::string_view text);

}  // namespace orvenza
