#pragma once

#include <functional>
#include <string>

#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "simulator/fault_script.h"
#include "simulator/paper_roll.h"
#include "simulator/simulated_link.h"
#include "simulator/simulated_register.h"

namespace orvenza {

/// A simulated register behind its control, set up by a script.
class Simulation {
 public:
  /// `show` is handed each line of paper. What the script's "paper" names is added to as well, below `folder`
  /// unless it is an absolute path. The first line that cannot be added is followed by one in brackets that
  /// names the file and the failure; later ones are passed over.
  Simulation(Files& files, const Clock& clock, Scheduler& scheduler, const FaultScript& script,
             const std::string& folder, std::function<void(const std::string&)> show);

  EcrLink& Control() { return link_; }

 private:
  PaperRoll paper_;
  SimulatedRegister register_;
  SimulatedLink link_;
};

/// Reads the script file `path`. Throws ScriptError, also when the file cannot be read.
FaultScript ReadFaultScript(const Files& files, const std::string& path);

}  // namespace orvenza
