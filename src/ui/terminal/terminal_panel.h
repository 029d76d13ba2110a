#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/register_panel.h"

namespace orvenza {

/// The panel of the simulated register on the terminal: drawn as text, used line by line. One row of numbers
/// names everything: the switches from 1, then the faults; 0 is no fault.
class TerminalPanel {
 public:
  /// `panel` outlives this object, which is its observer: `say` receives a line, without a line break, when a
  /// fault for the next command has struck.
  TerminalPanel(RegisterPanel& panel, std::function<void(const std::string& line)> say);
  ~TerminalPanel() { panel_.SetObserver(nullptr); }
  TerminalPanel(const TerminalPanel&) = delete;
  TerminalPanel& operator=(const TerminalPanel&) = delete;

  /// The latest lines of the roll, the counters, the switches and the chosen fault.
  std::string Draw(std::size_t width) const;

  /// Carries out a line and returns what is said about it, each line ended by a line feed. Empty: the line
  /// closes the panel.
  std::optional<std::string> Answer(std::string_view line, std::size_t width);

 private:
  std::string DrawFaults(std::size_t width) const;
  std::string Use(std::string_view line);
  std::string Turn(std::size_t number);
  std::string Choose(std::optional<ChosenFault> fault);
  std::vector<std::string> Captions() const;
  std::string FaultText() const;
  void OnChange();

  RegisterPanel& panel_;
  std::function<void(const std::string&)> say_;
  std::optional<ChosenFault> fault_;  ///< The fault at the last change.
};

}  // namespace orvenza
