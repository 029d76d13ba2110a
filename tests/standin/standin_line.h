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

/// The simulated register and its line. The script file in the environment variable ORVENZA_STANDIN_SCRIPT
/// sets their behaviour, and the traffic is logged. The register's clock stands still.
class StandInLine {
 public:
  StandInLine();

  SimulatedLink& Link() { return *link_; }

  /// Runs the due actions without waiting for a message loop.
  void RunDue() { scheduler_.RunDue(); }

 private:
  VirtualClock clock_;
  PaperRoll paper_;
  TimerScheduler scheduler_;
  std::unique_ptr<SimulatedRegister> register_;
  std::unique_ptr<SimulatedLink> link_;
};

}  // namespace orvenza::test
