#include "ui/terminal/terminal_operator.h"

#include <span>

#include "core/own_texts.h"
#include "core/text.h"
#include "ui/terminal/answers.h"
#include "ui/terminal/blocks.h"

namespace orvenza {
namespace {

using Captions = std::span<const std::string>;

constexpr int kMostDroppedLines = 1000;

}  // namespace

/// A dialog that waits for its answer.
class TerminalOperator::Dialog {
 public:
  explicit Dialog(TerminalOperator& terminal, bool isMessage = false)
      : terminal_(terminal), isMessage_(isMessage), displaced_(terminal.menuOpen_ || terminal.panelOpen_) {
    terminal_.menuOpen_ = false;
    terminal_.panelOpen_ = false;
    terminal_.dialogs_.push_back(this);
  }
  ~Dialog() { terminal_.dialogs_.pop_back(); }
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  /// Drops the lines typed before, then shows the dialog. `buttons` outlive it.
  void Open(Block block, Captions buttons) {
    buttons_ = buttons;
    terminal_.DropWaitingLines();
    shownAt_ = terminal_.clock_.Uptime();
    Change(std::move(block));
  }

  void Change(Block block) {
    block_ = std::move(block);
    Show();
  }

  void Show() const { terminal_.Say("\n" + block_.box + Prompt()); }

  bool IsMessage() const { return isMessage_; }
  bool HasButton(std::string_view answer) const { return FindButton(buttons_, answer) != 0; }
  bool Asking() const { return !block_.box.empty() && !closed_ && !line_; }
  void Answer(const std::string& line) {
    if (std::exchange(displaced_, false)) {
      Reject();
    } else {
      line_ = line;
    }
  }
  void Close() {
    if (!std::exchange(closed_, true)) terminal_.SayLine(own_text::kClosedUnanswered);
  }

  /// The next input line; empty when the dialog is closed.
  std::optional<std::string> NextLine() {
    while (!closed_ && !line_ && !Abandoned()) terminal_.loop_.Wait();
    if (line_ && !closed_ && !AsksToClose(*line_)) return std::exchange(line_, std::nullopt);
    Close();
    return std::nullopt;
  }

  /// The caption, from 1, named by the next valid line, see FindButton. An empty line names the first.
  std::optional<int> NextButton(Captions captions) {
    while (const auto line = NextLine()) {
      const int button = line->empty() ? 1 : FindButton(captions, *line);
      if (button != 0) return Accept(captions, button);
      Reject();
    }
    return std::nullopt;
  }

  /// Changes `selected`, an index into `entries`, by the next valid line; an empty line keeps it. Returns
  /// false when the dialog is closed.
  bool NextEntry(Captions entries, int& selected) {
    while (const auto line = NextLine()) {
      const int entry = FindCaption(entries, *line);
      if (entry != 0) selected = Accept(entries, entry) - 1;
      if (entry != 0 || line->empty()) return true;
      Reject();
    }
    return false;
  }

  void Accept(const std::string& caption) const {
    terminal_.SayLine(std::string(own_text::kAnswer) + " " + PlainCaption(caption));
  }
  int Accept(Captions captions, int number) const {
    Accept(captions[static_cast<std::size_t>(number - 1)]);
    return number;
  }
  void Reject() const { terminal_.Say(std::string(own_text::kWrongAnswer) + "\n" + Prompt()); }

 private:
  /// Mentions the menu and the panel once they are available.
  std::string Prompt() const {
    std::string more;
    if (terminal_.tip_) more += std::string("; ") + own_text::kMOpensMenu;
    if (terminal_.panel_)
      more += std::string("; ") + (HasButton("r") ? own_text::kRegOpensPanel : own_text::kROpensPanel);
    std::string prompt = block_.prompt;
    return prompt.insert(prompt.rfind(')'), more);
  }

  bool Abandoned() const {
    return terminal_.inputEnded_ && terminal_.clock_.Uptime() - shownAt_ >= kClosingDelay;
  }

  TerminalOperator& terminal_;
  const bool isMessage_;
  bool displaced_;    ///< The dialog interrupted the menu or the panel, for which the first line was meant.
  Captions buttons_;  ///< Whose letters answer the dialog.
  Block block_;
  std::chrono::nanoseconds shownAt_{};
  bool closed_ = false;
  std::optional<std::string> line_;
};

TerminalOperator::TerminalOperator(std::ostream& out, EventLoop& loop, const Clock& clock, bool bell)
    : out_(out), loop_(loop), clock_(clock), bell_(bell) {}

void TerminalOperator::OnLine(const std::string& line) {
  std::string_view text = line;
  if (text.ends_with('\r')) text.remove_suffix(1);
  const std::string answer = ToUtf8(Trim(text));
  ++linesTaken_;
  const bool asking = !dialogs_.empty() && dialogs_.back()->Asking();
  if (menuOpen_) {
    PickFromMenu(answer);
  } else if (panelOpen_) {
    UsePanel(answer);
  } else if (AsksForMenu(answer) && (asking || dialogs_.empty())) {
    tip_ ? OpenMenu() : RefuseMenu();
  } else if (WantsPanel(answer) && (asking || dialogs_.empty())) {
    OpenPanel();
  } else if (asking) {
    dialogs_.back()->Answer(answer);
  } else {
    SayLine(own_text::kNothingAsked + Tips());
  }
}

void TerminalOperator::OnEndOfInput() {
  inputEnded_ = true;
  panelOpen_ = false;
}

std::optional<int> TerminalOperator::ShowMessage(const MessageContent& content) {
  Dialog dialog(*this, true);
  if (bell_) out_ << '\a';
  dialog.Open(DrawMessage(content, width_()), content.buttons);
  return dialog.NextButton(content.buttons);
}

void TerminalOperator::CloseMessage() {
  for (Dialog* dialog : dialogs_) {
    if (dialog->IsMessage()) dialog->Close();
  }
}

std::optional<int> TerminalOperator::ShowChoice(const ChoiceContent& content) {
  Dialog dialog(*this);
  dialog.Open(DrawChoice(content, width_()), {&content.button, 1});
  while (const auto line = dialog.NextLine()) {
    int option = content.frameVisible ? FindCaption(content.options, *line) : 0;
    const bool confirmed = line->empty() || FindButton({&content.button, 1}, *line) != 0;
    if (option == 0 && !confirmed) {
      dialog.Reject();
      continue;
    }
    if (option == 0) option = content.selected;
    const bool named = content.frameVisible && option != 0;
    dialog.Accept(named ? content.options[static_cast<std::size_t>(option - 1)] : content.button);
    return option;
  }
  return std::nullopt;
}

std::optional<std::array<int, 5>> TerminalOperator::ShowPortSettings(const PortContent& content) {
  std::array<int, 5> selected = content.selected;
  Dialog dialog(*this);
  dialog.Open(DrawPortSettings(content, selected, width_()), {&content.button, 1});
  while (const auto line = dialog.NextLine()) {
    const int label = FindCaption(content.labels, *line);
    if (label != 0) {
      const auto list = static_cast<std::size_t>(label - 1);
      dialog.Change(DrawPortList(content, list, selected[list], width_()));
      if (!dialog.NextEntry(content.entries[list], selected[list])) return std::nullopt;
      dialog.Change(DrawPortSettings(content, selected, width_()));
    } else if (line->empty() || FindButton({&content.button, 1}, *line) != 0) {
      dialog.Accept(content.button);
      return selected;
    } else {
      dialog.Reject();
    }
  }
  return std::nullopt;
}

void TerminalOperator::ShowUtilities(const UtilitiesContent& content,
                                     const std::function<bool(int)>& pressed) {
  Dialog dialog(*this);
  dialog.Open(DrawUtilities(content, width_()), content.buttons);
  while (const auto button = dialog.NextButton(content.buttons)) {
    if (pressed(*button)) return;
    dialog.Show();
  }
}

void TerminalOperator::CreateIcon(const std::string& tip) {
  tip_ = tip;
  const std::string place = ticketPlace_ ? ": " + ticketPlace_() : std::string();
  SayLine(tip + " " + own_text::kRuns + place + "." + Tips());
}

void TerminalOperator::DeleteIcon() {
  if (tip_) SayLine(*tip_ + " " + own_text::kEnded);
  tip_.reset();
}

void TerminalOperator::OpenMenu() {
  menuOpen_ = true;
  const Block menu = DrawMenu(width_());
  Say("\n" + menu.box + menu.prompt);
}

/// The menu belongs to the icon, which is not shown yet.
void TerminalOperator::RefuseMenu() {
  SayLine(own_text::kMenuTooEarly);
  if (!dialogs_.empty()) dialogs_.back()->Show();
}

void TerminalOperator::PickFromMenu(const std::string& answer) {
  const auto captions = MenuCaptions();
  const int item = FindButton(captions, answer);
  if (item == 0 && !answer.empty() && !AsksToClose(answer)) {
    Say(std::string(own_text::kWrongAnswer) + "\n" + DrawMenu(width_()).prompt);
    return;
  }
  menuOpen_ = false;
  if (item == 0) {
    SayLine(own_text::kMenuClosed);
  } else {
    SayLine(std::string(own_text::kMenu) + ": " + captions[static_cast<std::size_t>(item - 1)]);
    RunMenuItem(static_cast<MenuItem>(item - 1));
  }
  ShowDialogAgain();
}

/// A dialog keeps the letters of its own buttons.
bool TerminalOperator::WantsPanel(const std::string& answer) const {
  return panel_ && AsksForPanel(answer) && (dialogs_.empty() || !dialogs_.back()->HasButton(answer));
}

void TerminalOperator::OpenPanel() {
  panelOpen_ = true;
  Say("\n" + panel_->Draw(width_()));
}

void TerminalOperator::UsePanel(const std::string& answer) {
  const auto said = panel_->Answer(answer, width_());
  if (said) return Say(*said);
  panelOpen_ = false;
  SayLine(own_text::kPanelClosed);
  ShowDialogAgain();
}

/// What can be opened now, each after a blank.
std::string TerminalOperator::Tips() const {
  std::string tips;
  if (tip_) tips += std::string(" ") + own_text::kMenuTip;
  if (panel_) tips += std::string(tip_ ? " - " : " ") + own_text::kPanelTip;
  return tips;
}

void TerminalOperator::ShowDialogAgain() {
  if (!dialogs_.empty() && dialogs_.back()->Asking() && !loop_.EndRequested()) dialogs_.back()->Show();
}

void TerminalOperator::RunMenuItem(MenuItem item) {
  if (!menuHandler_) return;
  try {
    menuHandler_(item);
  } catch (const ProgramEnd& end) {
    // The pump may be running inside a pause that must not be cut short; the next wait without a limit
    // throws.
    loop_.RequestEnd(end);
  }
}

/// Only while no dialog is open. The pump may deliver one line at a time; endless input is not waited for.
void TerminalOperator::DropWaitingLines() {
  for (int line = 0; line < kMostDroppedLines && !loop_.EndRequested(); ++line) {
    const std::size_t before = linesTaken_;
    loop_.Dispatch();
    if (linesTaken_ == before) return;
  }
}

void TerminalOperator::Say(std::string_view text) { out_ << text << std::flush; }

}  // namespace orvenza
