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
#include "ui/terminal/text_box.h"

namespace orvenza {

/// The operator at a text terminal: each dialog is a framed block, answered with one line. "m" opens the menu
/// at any time, "x" closes a dialog as a window's close button would. Nothing can be typed ahead: a line that
/// was entered before a dialog was shown is no answer to it.
class TerminalOperator final : public Operator, public NotificationIcon {
 public:
  /// How long a dialog stays when nobody can answer it any more, so that loops which ask without limit do not
  /// spin.
  static constexpr std::chrono::seconds kClosingDelay{1};

  /// With `bell`, messages sound the terminal's bell, for an operator who looks elsewhere.
  TerminalOperator(std::ostream& out, EventLoop& loop, const Clock& clock, bool bell = false);

  /// Who carries out the menu's items; until there is one, they do nothing.
  void SetMenuHandler(std::function<void(MenuItem)> handler) { menuHandler_ = std::move(handler); }

  /// What tells the width of the terminal in characters; until there is one, boxes have their usual width.
  void SetWidth(std::function<std::size_t()> width) { width_ = std::move(width); }

  /// What tells, once the program runs, where tickets go and how they are written.
  void SetTicketPlace(std::function<std::string()> place) { ticketPlace_ = std::move(place); }

  /// A line that the operator entered, with or without its line end's carriage return. Called from inside the
  /// event pump. Carries out the menu item that it picks, dialogs included; a ProgramEnd of that item is
  /// noted in the event loop instead of being thrown through the pump.
  void OnLine(const std::string& line);

  /// Nothing will be entered any more: every dialog, from now on too, closes without an answer.
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
  std::vector<Dialog*> dialogs_;  ///< Those that wait, the innermost last.
  std::size_t linesTaken_ = 0;
  bool menuOpen_ = false;
  bool inputEnded_ = false;
  std::optional<std::string> tip_;  ///< Of the icon while there is one.
};

}  // namespace orvenza
