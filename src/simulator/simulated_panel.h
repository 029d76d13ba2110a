#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "simulator/fault_script.h"
#include "simulator/simulated_link.h"
#include "simulator/simulated_register.h"
#include "ui/register_panel.h"

namespace orvenza {

/// The panel of a simulated register. Whatever is switched here is carried out as a line of the fault script.
class SimulatedPanel final : public RegisterPanel {
 public:
  /// All that the panel stands for or needs. It outlives the panel.
  struct Parts {
    SimulatedRegister& device;
    SimulatedLink& link;
    const Clock& clock;  ///< The PC's.
    Files& files;
  };

  /// `script` is the one that the register and its line have; `folder` receives the saved rolls. Observes the
  /// voids of the register and the faults of the line.
  SimulatedPanel(const Parts& parts, const FaultScript& script, std::string folder);
  SimulatedPanel(const SimulatedPanel&) = delete;
  SimulatedPanel& operator=(const SimulatedPanel&) = delete;

  /// The register has printed a line, in its own encoding.
  void Printed(const std::string& line);
  /// The register has carried out a command.
  void Changed() const;

  void SetObserver(std::function<void()> changed) override { observer_ = std::move(changed); }
  const std::deque<RollLine>& Roll() const override { return roll_; }
  std::size_t LinesPrinted() const override { return linesPrinted_; }
  std::vector<PanelSwitch> Switches() const override;
  void Turn(std::size_t number, bool on) override;
  const std::vector<std::string>& Faults() const override { return captions_; }
  std::optional<ChosenFault> Fault() const override;
  void SetFault(std::optional<ChosenFault> fault) override;
  std::vector<std::string> Counters() const override;
  std::string Scenario() const override;
  std::string SaveRoll() override;

 private:
  /// A line of the script, and when it was carried out.
  struct Step {
    std::chrono::milliseconds at;
    std::string line;
  };

  void AddFaultsOf(const FaultScript& script);
  void AddFault(std::string caption, const std::string& words);
  bool IsOn(std::size_t number) const;
  void Carry(const std::string& line);
  void Voided(std::size_t lines);
  std::chrono::milliseconds Elapsed() const;
  std::string RollText() const;

  Parts parts_;
  RegisterProfile profile_;
  int pace_;
  std::vector<std::string> scriptLines_;
  std::string folder_;
  LocalTime start_;
  std::chrono::nanoseconds startUptime_;
  std::function<void()> observer_;
  std::deque<RollLine> roll_;
  std::size_t linesPrinted_ = 0;
  std::size_t voidedUntil_ = 0;  ///< Lines held back of a voided slip are printed before this number.
  std::vector<std::string> captions_;
  std::vector<std::string> words_;      ///< The faults in the script's words, in the order of the captions.
  std::vector<orvenza::Fault> faults_;  ///< The same faults for the next command.
  std::deque<Step> steps_;
  std::size_t stepsDropped_ = 0;
};

}  // namespace orvenza
