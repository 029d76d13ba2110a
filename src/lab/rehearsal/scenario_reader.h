#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// Returns the bytes of a file, named as in the scenario. Throws SystemError.
using SourceReader = std::function<std::string(const std::string& file)>;

/// Parses a scenario; docs/rehearsal.md describes its format. `name` is for messages. `readSource` reads the
/// files that tickets are taken from; if it is null, such lines are refused. Throws ScriptError with all
/// mistakes.
Scenario ParseScenario(const std::string& name, std::string_view text, const SourceReader& readSource = {});

}  // namespace orvenza
