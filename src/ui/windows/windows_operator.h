#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "core/event_loop.h"
#include "platform/windows/windows_event_pump.h"
#include "ui/menu.h"
#include "ui/notification_icon.h"
#include "ui/operator.h"
#include "ui/windows/console_guard.h"
#include "ui/windows/form.h"
#include "ui/windows/main_form.h"
#include "ui/windows/message_form.h"
#include "ui/windows/session_guard.h"

namespace orvenza {

/// The operator in front of windows, with an icon in the notification area. All windows, including the hidden
/// main form, live as long as the object.
class WindowsOperator final : public Operator, public NotificationIcon {
 public:
  /// `programFolder` may contain the sound for messages, which `play` plays; `caption` is the main form's.
  /// Throws SystemError.
  WindowsOperator(EventLoop& loop, WindowsEventPump& pump, std::string programFolder,
                  const std::string& caption, SoundPlayer play = SystemSound());

  /// Handles the menu's items; until it is set, they do nothing. An item runs as an event of the pump,
  /// dialogs included; its ProgramEnd is passed to the event loop.
  void SetMenuHandler(std::function<void(MenuItem)> handler) { menuHandler_ = std::move(handler); }

  /// Adds one more item to the menu, below the others. `chosen` runs as an event of the pump; a waiting
  /// dialog gets the keyboard back afterwards.
  void AddMenuItem(std::string caption, std::function<void()> chosen);

  std::optional<int> ShowMessage(const MessageContent& content) override;
  void CloseMessage() override;
  std::optional<int> ShowChoice(const ChoiceContent& content) override;
  std::optional<std::array<int, 5>> ShowPortSettings(const PortContent& content) override;
  void ShowUtilities(const UtilitiesContent& content, const std::function<bool(int)>& pressed) override;

  void CreateIcon(const std::string& tip) override { orvMain_.CreateIcon(tip); }
  void DeleteIcon() override { orvMain_.DeleteIcon(); }

 private:
  void RunMenuItem(MenuItem item);
  void LeaveMainForm() const;

  std::string programFolder_;
  SoundPlayer play_;
  std::function<void(MenuItem)> menuHandler_;
  Desk desk_;
  std::vector<Form*> messages_;  ///< Open message dialogs, the innermost last.
  MainForm orvMain_;
  SessionGuard sessionGuard_;
  ConsoleGuard consoleGuard_;
};

}  // namespace orvenza
