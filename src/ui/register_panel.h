#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvenza {

/// A line on the paper of the simulated register.
struct RollLine {
  std::string text;     ///< UTF-8, at most 40 characters.
  bool voided = false;  ///< It belongs to a slip that the register has voided.
};

/// One switch of the simulated register: its paper, its power, its cable, its key.
struct PanelSwitch {
  std::string caption;
  bool on = true;  ///< All are on at a register in good order.
};

/// A fault of the exchange that a tester has chosen.
struct ChosenFault {
  std::size_t number = 0;  ///< Its place in RegisterPanel::Faults().
  bool once = true;        ///< Only the next command; otherwise all until it is switched off.
};

/// The simulated register as a person in front of it sees it: the roll of paper, the switches, the faults to
/// choose from, the day's counters. A window and the terminal show it; the simulated register stands behind
/// it. All texts are Italian.
class RegisterPanel {
 public:
  virtual ~RegisterPanel() = default;

  /// Called after anything here has changed, from inside the call that changed it; null: nobody. It must only
  /// take note, not call back.
  virtual void SetObserver(std::function<void()> changed) = 0;

  /// The latest lines, oldest first.
  virtual const std::deque<RollLine>& Roll() const = 0;
  /// Number of lines printed since the start; tells a viewer how many of Roll() are new.
  virtual std::size_t LinesPrinted() const = 0;

  virtual std::vector<PanelSwitch> Switches() const = 0;
  virtual void Turn(std::size_t number, bool on) = 0;

  /// The faults, in words.
  virtual const std::vector<std::string>& Faults() const = 0;
  /// Empty while none is chosen. One for the next command only disappears when that command has come.
  virtual std::optional<ChosenFault> Fault() const = 0;
  virtual void SetFault(std::optional<ChosenFault> fault) = 0;

  /// The day's counters and what is open, one per line, such as "Totale del giorno: 12,50".
  virtual std::vector<std::string> Counters() const = 0;

  /// What was switched so far, as a scenario for orvenza-lab rehearse.
  virtual std::string Scenario() const = 0;

  /// Saves the roll as a text file in the program folder and returns a sentence with its name, or with the
  /// reason why it could not be written.
  virtual std::string SaveRoll() = 0;
};

}  // namespace orvenza
