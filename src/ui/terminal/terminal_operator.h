#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/event_loop.h"
#include "platform/clock.h"
#include "ui/menu.h"
#include "ui/notification_icon.h"
#include "ui/operator.h"
#include "ui/register_panel.h"
#include "ui/terminal/terminal_panel.h"
#include "ui/terminal/text_box.h"

namespace orvenza {

/// The operator at a text terminal: each dialog is a framed block, answered with one line. "m" opens the menu
/// at any time, "r" the panel of a simulated register, "x" closes a dialog like a window's close button.
/// There is no type-ahead: a line entered before a dialog was shown does not answer it.
class TerminalOperator final : public Operator, public NotificationIcon {
 public:
  /// How long a dialog stays open once the input has ended, so that loops that ask without limit do not spin.
  static constexpr std::chrono::seconds kClosingDelay{1};

  /// With `bell`, messages sound the terminal's bell, for an operator looking elsewhere.
  TerminalOperator(std::ostream& out, EventLoop& loop, const Clock& clock, bool bell = false);

  /// Handles the menu's items; until it is set, they do nothing.
  void SetMenuHandler(std::function<void(MenuItem)> handler) { menuHandler_ = std::move(handler); }

  /// Offers the panel of the simulated register, which outlives this object; until it is set, there is none.
  void SetPanel(RegisterPanel& panel) {
    panel_.emplace(panel, [this](const std::string& line) { SayLine(line); });
  }

  /// Returns the width of the terminal in characters; until it is set, boxes have the default width.
  void SetWidth(std::function<std::size_t()> width) { width_ = std::move(width); }

  /// Returns, once the program runs, the description of where tickets go and how they are written.
  void SetTicketPlace(std::function<std::string()> place) { ticketPlace_ = std::move(place); }

  /// A line that the operator entered; a carriage return at its end is ignored. Called from inside the event
  /// pump. Runs the menu item that the line selects, dialogs included; a ProgramEnd of that item is passed to
  /// the event loop instead of being thrown through the pump.
  void OnLine(const std::string& line);

  /// The input has ended: every dialog, open or later, closes without an answer.
  void OnEndOfInput();

  std::optional<int> ShowMessage(const MessageContent& content) override;
  void CloseMessage() override;
  std::optional<int> ShowChoice(const ChoiceContent& content) override;
  std::optional<std::array<int, 5>> ShowPortSettings(const PortContent& content) override;
  void ShowUtilities(const UtilitiesContent& content, const std::function<bool(int)>& pressed) override;

  void CreateIcon(const std::string& tip) override;
  void DeleteIcon() override;

 private:
  class Dialog;

  void OpenMenu();
  void RefuseMenu();
  void PickFromMenu(const std::string& answer);
  void RunMenuItem(MenuItem item);
  bool WantsPanel(const std::string& answer) const;
  void OpenPanel();
  void UsePanel(const std::string& answer);
  std::string Tips() const;
  void ShowDialogAgain();
  void DropWaitingLines();
  void Say(std::string_view text);
  void SayLine(const std::string& text) { Say(text + "\n"); }

  std::ostream& out_;
  EventLoop& loop_;
  const Clock& clock_;
  const bool bell_;
  std::function<void(MenuItem)> menuHandler_;
  std::function<std::size_t()> width_ = [] { return TextBox::kWidth; };
  std::function<std::string()> ticketPlace_;
  std::vector<Dialog*> dialogs_;  ///< Open dialogs, the innermost last.
  std::size_t linesTaken_ = 0;
  bool menuOpen_ = false;
  std::optional<TerminalPanel> panel_;  ///< Empty without a simulated register.
  bool panelOpen_ = false;
  bool inputEnded_ = false;
  std::optional<std::string> tip_;  ///< The icon's tip; empty while there is no icon.
};

}  // namespace orvenza
