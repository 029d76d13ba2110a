#include "simulator/simulated_panel.h"

#include <algorithm>

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "platform/system_error.h"
#include "simulator/paper_layout.h"
#include "simulator/paper_roll.h"
#include "simulator/register_replies.h"
#include "simulator/script_line.h"

namespace orvenza {
namespace {

using std::chrono::milliseconds;

/// So that days of playing do not fill the memory.
constexpr std::size_t kMostSteps = 10000;

struct SwitchWords {
  const char* caption;
  const char* off;
  const char* on;
};

constexpr SwitchWords kSwitches[] = {{own_text::kReceiptPaper, "receipt-paper out", "receipt-paper in"},
                                     {own_text::kJournalPaper, "journal-paper out", "journal-paper in"},
                                     {own_text::kPower, "power off", "power on"},
                                     {own_text::kCable, "cable out", "cable in"},
                                     {own_text::kKey, "key off", "key on"}};

constexpr int kLastError = 31;

Fault ReadFault(const std::string& line) { return ParseFaultScript("panel", line).faults.front(); }

/// "Errore 01: Carta Giornale"; the catalogue's text begins with the number.
std::string ErrorCaption(int code) {
  const std::string text = LoadMessage(EcrErrorMessage(code));
  return std::string(own_text::kError) + " " + text.substr(0, 2) + ": " + text.substr(3);
}

/// A script's line in a scenario. That is UTF-8, in which a line in another encoding could mean something
/// else, so it becomes a comment.
std::string RegisterLine(const std::string& line) {
  const std::string readable = ToUtf8(line);
  return (readable == line ? "register " : "# register ") + readable + "\n";
}

std::string Line(const char* name, const std::string& value) { return std::string(name) + " " + value; }

}  // namespace

SimulatedPanel::SimulatedPanel(const Parts& parts, const FaultScript& script, std::string folder)
    : parts_(parts),
      profile_(script.profile),
      pace_(script.pace),
      scriptLines_(script.lines),
      folder_(std::move(folder)),
      start_(parts.clock.Now()),
      startUptime_(parts.clock.Uptime()) {
  AddFault(own_text::kSilence, "silence");
  AddFault(own_text::kReplyLost, "lose-reply");
  AddFault(own_text::kReplyLate, "late 5000");
  for (const char* number : {"1", "2", "3"})
    AddFault(Line(own_text::kLinkError, number), Line("link-error", number));
  AddFault(own_text::kReplyGarbled, "reply ?~?~?");
  for (int code = 1; code <= kLastError; ++code) {
    const std::string caption = ErrorCaption(code);
    const std::string digits = LoadMessage(EcrErrorMessage(code)).substr(0, 2);
    AddFault(caption, "reply " + Refusal(digits));
  }
  AddFaultsOf(script);
  parts_.device.SetVoidObserver([this](std::size_t lines) { Voided(lines); });
  parts_.link.SetFaultObserver([this] { Changed(); });
}

/// So that a fault of the script can be seen and chosen like the others.
void SimulatedPanel::AddFaultsOf(const FaultScript& script) {
  const std::string name;
  for (const std::string& text : script.lines) {
    ScriptLine line(name, 1, text);
    if (line.Skip("after")) line.Word();
    if (!line.Skip("next") && !line.Skip("every")) continue;
    const std::string words(line.Rest());
    if (std::find(faults_.begin(), faults_.end(), ReadFault("next " + words)) == faults_.end())
      AddFault(Line(own_text::kFromScript, ToUtf8(words)), words);
  }
}

void SimulatedPanel::AddFault(std::string caption, const std::string& words) {
  captions_.push_back(std::move(caption));
  words_.push_back(words);
  faults_.push_back(ReadFault("next " + words));
}

void SimulatedPanel::Printed(const std::string& line) {
  roll_.push_back({FromWindows1252(line), linesPrinted_ < voidedUntil_});
  if (roll_.size() > PaperRoll::kLinesKept) roll_.pop_front();
  ++linesPrinted_;
  Changed();
}

void SimulatedPanel::Changed() const {
  if (observer_) observer_();
}

void SimulatedPanel::Voided(std::size_t lines) {
  const std::size_t held = parts_.device.State().linesHeld.size();
  voidedUntil_ = linesPrinted_ + held;
  const std::size_t printed = std::min(lines - std::min(lines, held), roll_.size());
  std::for_each(roll_.end() - static_cast<std::ptrdiff_t>(printed), roll_.end(),
                [](RollLine& line) { line.voided = true; });
  Changed();
}

std::vector<PanelSwitch> SimulatedPanel::Switches() const {
  std::vector<PanelSwitch> switches;
  for (std::size_t number = 0; number < std::size(kSwitches); ++number)
    switches.push_back({kSwitches[number].caption, IsOn(number)});
  return switches;
}

bool SimulatedPanel::IsOn(std::size_t number) const {
  switch (number) {
    case 0: return parts_.device.PaperIn(Paper::kReceipt);
    case 1: return parts_.device.PaperIn(Paper::kJournal);
    case 2: return parts_.link.PowerOn();
    case 3: return parts_.link.CableIn();
    default: return parts_.device.KeyOn();
  }
}

void SimulatedPanel::Turn(std::size_t number, bool on) {
  if (number >= std::size(kSwitches) || IsOn(number) == on) return;
  Carry(on ? kSwitches[number].on : kSwitches[number].off);
}

std::optional<ChosenFault> SimulatedPanel::Fault() const {
  if (!parts_.link.Awaiting()) return {};
  orvenza::Fault fault = *parts_.link.Awaiting();
  const bool once = std::exchange(fault.times, 1) == 1;
  fault.after = {};
  const auto found = std::find(faults_.begin(), faults_.end(), fault);
  if (found == faults_.end()) return {};
  return ChosenFault{static_cast<std::size_t>(found - faults_.begin()), once};
}

void SimulatedPanel::SetFault(std::optional<ChosenFault> fault) {
  if (!fault) {
    if (parts_.link.Awaiting()) Carry("no fault");
  } else if (fault->number < words_.size()) {
    Carry((fault->once ? "next " : "every ") + words_[fault->number]);
  }
}

void SimulatedPanel::Carry(const std::string& line) {
  steps_.push_back({Elapsed(), line});
  if (steps_.size() > kMostSteps) {
    steps_.pop_front();
    ++stepsDropped_;
  }
  parts_.link.Strike(ReadFault(line));
}

std::vector<std::string> SimulatedPanel::Counters() const {
  const RegisterState& state = parts_.device.State();
  std::string open = own_text::kNothingOpen;
  if (state.receipt) open = Line(own_text::kReceiptOpen, FormatCents(state.receipt->Total()));
  if (state.documentOpen) open = own_text::kDocumentOpen;
  std::string lines = std::to_string(state.linesPrinted);
  if (profile_.rollLines > 0)
    lines += " " + std::string(own_text::kOf) + " " + std::to_string(profile_.rollLines);
  std::vector<std::string> counters{Line(own_text::kDailyTotal, FormatCents(state.dailyTotal)),
                                    Line(own_text::kReceipts, std::to_string(state.dailyReceipts)),
                                    Line(own_text::kClosures, std::to_string(state.fiscalClosures)),
                                    Line(own_text::kOpen, open), Line(own_text::kLinesOnRoll, lines)};
  if (state.paperOut && parts_.device.PaperIn(*state.paperOut)) {
    const char* const paper =
        *state.paperOut == Paper::kJournal ? own_text::kJournalPaper : own_text::kReceiptPaper;
    counters.push_back(std::string(paper) + ": " + own_text::kAwaitsRestart);
  }
  return counters;
}

milliseconds SimulatedPanel::Elapsed() const {
  return std::chrono::floor<milliseconds>((parts_.clock.Uptime() - startUptime_) * pace_);
}

std::string SimulatedPanel::Scenario() const {
  std::string text = "# " + std::string(own_text::kScenarioHead) + "\n";
  if (stepsDropped_ > 0) text += "# " + std::string(own_text::kStepsMissing) + "\n";
  text += "start " + FixedStamp(start_) + "\n";
  for (const std::string& line : scriptLines_) text += RegisterLine(line);
  for (const Step& step : steps_)
    text += RegisterLine("after " + std::to_string(step.at.count()) + " " + step.line);
  const auto end = std::chrono::ceil<std::chrono::seconds>(Elapsed());
  return text + "at " + std::to_string(end.count()) + "s quit\n";
}

std::string SimulatedPanel::RollText() const {
  std::string text;
  for (const RollLine& line : roll_) {
    text += line.text;
    if (line.voided) {
      const std::size_t width = std::min(CountCharacters(line.text), kPaperColumns);
      text += std::string(kPaperColumns + 2 - width, ' ') + own_text::kVoided;
    }
    text += kLineBreak;
  }
  return text;
}

std::string SimulatedPanel::SaveRoll() {
  if (roll_.empty()) return own_text::kRollEmpty;
  const LocalTime now = parts_.clock.Now();
  const std::string name = "rotolo-" + DateDigits(now) + "-" + TimeDigits(now);
  try {
    std::string file = name + ".txt";
    for (int number = 2; parts_.files.Exists(folder_ + "\\" + file); ++number)
      file = name + "-" + std::to_string(number) + ".txt";
    parts_.files.Write(folder_ + "\\" + file, RollText());
    return Line(own_text::kRollSaved, file);
  } catch (const SystemError& failure) {
    return Line(own_text::kRollNotSaved, std::string(StandardDescription(failure.Number())));
  }
}

}  // namespace orvenza
