#pragma once

#include <memory>
#include <optional>
#include <string>

#include "simulator/fault_script.h"
#include "simulator/simulated_link.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"
#include "standin/timer_scheduler.h"

namespace orvenza::test {

/// The simulated register and the line to it. It behaves as the script file says that the environment
/// variable ORVENZA_STANDIN_SCRIPT names, and what happens on the line goes to the log. The register's
/// clock stands still.
class StandInLine {
 public:
  StandInLine();

  SimulatedLink& Link() { return *link_; }

  /// Does what is due now, without waiting for a message loop.
  void RunDue() { scheduler_.RunDue(); }

 private:
  VirtualClock clock_;
  PaperRoll paper_;
  TimerScheduler scheduler_;
  std::unique_ptr<SimulatedRegister> register_;
  std::unique_ptr<SimulatedLink> link_;
};

}  // namespace orvenza::test
