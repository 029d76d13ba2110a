// A script of the simulated register. Properties: it is parsed, or the error names a line and what is
// expected there; what the register's panel makes of it is a scenario.

#include "simulator/fault_script.h"

#include "lab/rehearsal/scenario_reader.h"
#include "memory_shop.h"
#include "script_failure.h"
#include "simulator/simulated_panel.h"
#include "targets.h"

namespace orvenza::fuzz {
namespace {

/// Every fault of the panel is chosen, and every switch turned.
std::string ScenarioOfThePanel(const FaultScript& script) {
  MemoryShop shop;
  PaperRoll paper;
  SimulatedRegister device(shop.clock, paper, script.profile);
  SimulatedLink link(device, shop.clock, script);
  SimulatedPanel panel({device, link, shop.clock, shop.disk.FileSeam()}, script, "C:");
  for (std::size_t fault = 0; fault < panel.Faults().size(); ++fault)
    panel.SetFault(ChosenFault{fault, true});
  for (std::size_t number = 0; number < panel.Switches().size(); ++number)
    panel.Turn(number, !panel.Switches()[number].on);
  return panel.Scenario();
}

}  // namespace

void FuzzScript(std::string_view input) {
  try {
    const FaultScript script = ParseFaultScript("script", input);
    Require(!ParseScenario("scenario", ScenarioOfThePanel(script)).device.faults.empty(),
            "what was switched at the panel is a scenario");
    for (const Fault& fault : script.faults) {
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
