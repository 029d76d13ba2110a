#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ui/menu.h"
#include "ui/windows/window.h"

namespace orvenza {

/// What the operator, or the system, asks of the main form.
struct MainFormEvents {
  std::function<void(MenuItem)> chosen;  ///< An item of the menu.
  std::function<void()> end;             ///< The session ends, or another program closed the form.
  std::function<void()> menuClosed;  ///< The menu has gone and has left the foreground to the hidden form.
};

/// The picture box that the icon belongs to and sends its messages to.
class Picture final : public Window {
 public:
  /// `pressed` is called from inside the window's procedure when the icon is pressed with the left or the
  /// right button.
  Picture(HWND form, std::function<void()> pressed);
  ~Picture() override;
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  /// Puts the icon into the notification area. A failure is not reported.
  void AddIcon(const std::string& tip) const;
  void DeleteIcon() const;

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  std::function<void()> pressed_;
};

/// The main form `Orv_Main`: owns icon and menu and is never to be seen.
class MainForm final : public Window {
 public:
  /// `events` are called from inside the window's procedure and must not throw.
  MainForm(const std::string& caption, MainFormEvents events);
  ~MainForm() override;
  MainForm(const MainForm&) = delete;
  MainForm& operator=(const MainForm&) = delete;

  void CreateIcon(const std::string& tip);
  void DeleteIcon();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnSize(WPARAM state);
  void Centre() const;
  void PopUp();
  void End();

  MainFormEvents events_;
  const UINT taskbarCreated_;
  std::optional<Picture> picture1_;
  std::optional<std::string> tip_;  ///< Of the icon while there is one.
  bool menuIsOpen_ = false;
};

}  // namespace orvenza
