// A script of the simulated register. Property: it is parsed, or the error names a line and what is expected
// there.

#include "simulator/fault_script.h"

#include "script_failure.h"
#include "targets.h"

namespace orvenza::fuzz {

void FuzzScript(std::string_view input) {
  try {
    for (const Fault& fault : ParseFaultScript("script", input).faults) {
      Require(fault.first >= 1 && fault.times >= 1,
              "a fault strikes a command from the first on, at least once");
      Require(!fault.prefix.empty() || fault.after.count() >= 0, "a fault has a command or a time");
      Require(fault.number >= 0, "a fault's number is not negative");
    }
  } catch (const ScriptError& failure) {
    RequireNamedLine(failure, "script", input);
  }
}

}  // namespace orvenza::fuzz
