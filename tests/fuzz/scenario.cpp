// A scenario. Properties: it is parsed, or the error names a line and what is expected there; a parsed one
// can be played, with the same transcript twice.

#include "lab/rehearsal/scenario_reader.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "lab/rehearsal/rehearsal.h"
#include "script_failure.h"
#include "targets.h"

namespace orvenza::fuzz {
namespace {

using namespace std::chrono_literals;

std::vector<std::string> Play(const Scenario& scenario) {
  std::vector<std::string> transcript;
  Rehearse(scenario, [&](const std::string& line) { transcript.push_back(line); });
  return transcript;
}

}  // namespace

void FuzzScenario(std::string_view input) {
  try {
    Scenario scenario = ParseScenario("scenario", input);
    Require(scenario.limit.count() > 0, "a scenario has a limit");
    scenario.limit = std::min(scenario.limit, std::chrono::milliseconds(1min));
    const std::vector<std::string> transcript = Play(scenario);
    Require(!transcript.empty(), "a rehearsal has a transcript");
    Require(Play(scenario) == transcript, "a scenario tells the same twice");
  } catch (const ScriptError& failure) {
    RequireNamedLine(failure, "scenario", input);
  }
}

}  // namespace orvenza::fuzz
