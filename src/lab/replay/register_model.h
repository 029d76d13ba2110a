#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/paper_roll.h"
#include "simulator/simulated_register.h"
#include "simulator/virtual_clock.h"

namespace orvenza {

/// A simulated register whose latest step can be taken back.
class RegisterModel {
 public:
  RegisterModel(RegisterProfile profile, const LocalTime& start);
  RegisterModel(const RegisterModel& other);
  RegisterModel& operator=(const RegisterModel&) = delete;

  /// Lets time pass until this long after the start.
  void PassUntil(std::chrono::milliseconds time);

  /// Executes a command, with the paper running out at it if one is named. Returns the reply.
  std::string Execute(const std::string& command, std::optional<Paper> runsOut = {});

  /// Takes back the latest command.
  void TakeBack();

 private:
  struct Step {
    std::string command;
    std::optional<Paper> runsOut;
  };

  void Begin();
  std::string Do(const Step& step);

  RegisterProfile profile_;
  VirtualClock clock_;
  PaperRoll paper_;
  std::vector<Step> steps_;  ///< Since nothing was open and the paper was there.
  std::unique_ptr<SimulatedRegister> device_;
};

}  // namespace orvenza
