#pragma once

#include <string>

namespace orvenza::test {

/// Adds a test that plays the scenario `name`, with the text `scenario`, once more from its own trace.
void RegisterReplayTest(const char* name, const std::string& scenario);

}  // namespace orvenza::test
