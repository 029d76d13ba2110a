#include "ui/terminal/terminal_panel.h"

#include <algorithm>
#include <utility>

#include "core/own_texts.h"
#include "core/text.h"
#include "ui/terminal/answers.h"
#include "ui/terminal/text_box.h"

namespace orvenza {
namespace {

/// Few enough that the whole panel fits on a screen of 24 lines.
constexpr std::size_t kLinesShown = 8;
/// Where the mark of a voided line begins; the paper is 40 characters wide.
constexpr std::size_t kMarkColumn = 42;

std::string Numbered(std::size_t number, const std::string& caption) {
  return "[" + std::to_string(number) + "] " + caption;
}

std::string SwitchText(const PanelSwitch& shown) {
  return shown.caption + ": " + (shown.on ? own_text::kSwitchOn : own_text::kSwitchOff);
}

std::string RollText(const RollLine& line) {
  if (!line.voided) return line.text;
  const std::size_t width = std::min(CountCharacters(line.text), kMarkColumn - 1);
  return line.text + std::string(kMarkColumn - width, ' ') + own_text::kVoided;
}

/// Removes the last word of `line` if it is "sempre".
bool TakeAlways(std::string_view& line) {
  const std::size_t blank = line.find_last_of(' ');
  if (blank == std::string_view::npos || !IsWord(line.substr(blank + 1), own_text::kAlways)) return false;
  line = Trim(line.substr(0, blank));
  return true;
}

}  // namespace

TerminalPanel::TerminalPanel(RegisterPanel& panel, std::function<void(const std::string&)> say)
    : panel_(panel), say_(std::move(say)) {
  panel_.SetObserver([this] { OnChange(); });
}

void TerminalPanel::OnChange() {
  const auto before = std::exchange(fault_, panel_.Fault());
  if (before && before->once && !fault_)
    say_("    (" + std::string(own_text::kFaultStruck) + " " + panel_.Faults()[before->number] + ")");
}

std::string TerminalPanel::Draw(std::size_t width) const {
  TextBox box(own_text::kPanel, width);
  const auto& roll = panel_.Roll();
  if (roll.empty()) box.AddText(own_text::kNothingPrinted);
  for (std::size_t i = roll.size() - std::min(roll.size(), kLinesShown); i < roll.size(); ++i)
    box.AddText(RollText(roll[i]));
  box.AddRule();
  box.AddColumns(panel_.Counters());
  box.AddRule();
  std::vector<std::string> switches;
  for (const PanelSwitch& shown : panel_.Switches())
    switches.push_back(Numbered(switches.size() + 1, SwitchText(shown)));
  box.AddColumns(switches);
  box.AddText(FaultText());
  return box.Draw() + own_text::kPanelPrompt + "\n";
}

std::string TerminalPanel::DrawFaults(std::size_t width) const {
  TextBox box(std::string(own_text::kPanel) + " - " + own_text::kFaults, width);
  std::size_t number = panel_.Switches().size();
  for (const std::string& fault : panel_.Faults()) box.AddText(Numbered(++number, fault));
  box.AddRule();
  box.AddText(FaultText());
  box.AddText(own_text::kFaultHint);
  return box.Draw() + own_text::kAfterAction + "\n";
}

std::optional<std::string> TerminalPanel::Answer(std::string_view line, std::size_t width) {
  if (line.empty() || AsksToClose(line)) return std::nullopt;
  if (AsksForPanel(line)) return "\n" + Draw(width);
  if (IsWord(line, "g") || IsWord(line, own_text::kFaults)) return "\n" + DrawFaults(width);
  std::string said;
  if (IsWord(line, "s")) {
    said = panel_.SaveRoll() + "\n";
  } else if (IsWord(line, "c")) {
    said = "\n" + panel_.Scenario() + "\n";
  } else {
    said = Use(line);
  }
  if (said.empty()) return std::string(own_text::kWrongAnswer) + "\n" + own_text::kPanelPrompt + "\n";
  return said + own_text::kAfterAction + "\n";
}

/// Empty for a line that cannot be understood.
std::string TerminalPanel::Use(std::string_view line) {
  if (line == "0") return Choose(std::nullopt);
  const bool always = TakeAlways(line);
  const int found = FindCaptionByStart(Captions(), line);
  if (found == 0) return {};
  const std::size_t number = static_cast<std::size_t>(found - 1);
  const std::size_t switches = panel_.Switches().size();
  if (number >= switches) return Choose(ChosenFault{number - switches, !always});
  return always ? std::string() : Turn(number);
}

std::string TerminalPanel::Turn(std::size_t number) {
  panel_.Turn(number, !panel_.Switches()[number].on);
  return SwitchText(panel_.Switches()[number]) + "\n";
}

std::string TerminalPanel::Choose(std::optional<ChosenFault> fault) {
  fault_.reset();  // One that is taken back has not struck.
  panel_.SetFault(fault);
  return FaultText() + "\n";
}

std::vector<std::string> TerminalPanel::Captions() const {
  std::vector<std::string> captions;
  for (const PanelSwitch& shown : panel_.Switches()) captions.push_back(shown.caption);
  captions.insert(captions.end(), panel_.Faults().begin(), panel_.Faults().end());
  return captions;
}

std::string TerminalPanel::FaultText() const {
  const auto fault = panel_.Fault();
  std::string text = std::string(own_text::kFault) + " ";
  if (!fault) return text + own_text::kNoFault;
  return text + panel_.Faults()[fault->number] + " (" +
         (fault->once ? own_text::kNextCommand : own_text::kEveryCommand) + ")";
}

}  // namespace orvenza
