#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/kept_paper.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "simulator/fault_script.h"
#include "simulator/paper_roll.h"
#include "simulator/simulated_link.h"
#include "simulator/simulated_panel.h"
#include "simulator/simulated_register.h"

namespace orvenza {

/// A simulated register behind its link control, configured by a script.
class Simulation {
 public:
  /// `clock` is the PC's, which the register's clock keeps up with whatever the pace of `scheduler`.
  /// `show` receives each printed line. Lines are also appended to the file named by the script's "paper",
  /// relative to `folder` unless its path is absolute; the register then goes on with the state of the
  /// earlier start (see KeptPaper). Without a "paper" nothing is read or written. The panel saves rolls in
  /// `folder`.
  Simulation(Files& files, const Clock& clock, Scheduler& scheduler, const FaultScript& script,
             const std::string& folder, std::function<void(const std::string&)> show);

  EcrLink& Control() { return link_; }

  RegisterPanel& Panel() { return panel_; }

 private:
  std::optional<KeptPaper> kept_;  ///< Empty without a "paper".
  PaperRoll paper_;
  SimulatedRegister register_;
  SimulatedLink link_;
  SimulatedPanel panel_;
};

/// Reads the script file `path`. Throws ScriptError, even if the file cannot be read.
FaultScript ReadFaultScript(const FileReader& files, const std::string& path);

}  // namespace orvenza
