#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ui/menu.h"
#include "ui/windows/shell.h"
#include "ui/windows/window.h"

namespace orvenza {

/// What the operator, or the system, asks of the main form.
struct MainFormEvents {
  std::function<void(MenuItem)> chosen;  ///< An item of the menu.
  std::function<void()> end;             ///< The session ends, or another program closed the form.
  std::function<void()> menuClosed;  ///< The menu has gone without a choice. The form may be in front still.
};

/// The picture box that the icon belongs to and sends its messages to.
class Picture final : public Window {
 public:
  /// `pressed` is called from inside the window's procedure when the icon is pressed with the left or the
  /// right button. `shell` outlives the picture.
  Picture(HWND form, const Shell& shell, std::function<void()> pressed);
  ~Picture() override;
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  /// Puts the icon into the notification area, or brings the one that is there up to date. False when the
  /// shell has taken neither.
  bool AddIcon(const std::string& tip) const;
  void DeleteIcon() const;

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  const Shell& shell_;
  std::function<void()> pressed_;
};

/// The main form `Orv_Main`: owns icon and menu and is never to be seen.
class MainForm final : public Window {
 public:
  /// `events` are called from inside the window's procedure and must not throw.
  MainForm(const std::string& caption, MainFormEvents events, Shell shell = SystemShell());
  ~MainForm() override;
  MainForm(const MainForm&) = delete;
  MainForm& operator=(const MainForm&) = delete;

  /// Tries again until the shell takes the icon. A failure is not reported.
  void CreateIcon(const std::string& tip);
  void DeleteIcon();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void ShowIcon();
  void OnSize(WPARAM state);
  void Centre() const;
  POINT PlaceOfMenu() const;
  void PopUp();
  void End();

  MainFormEvents events_;
  const Shell shell_;
  const UINT taskbarCreated_;
  std::optional<Picture> picture1_;
  std::optional<std::string> tip_;  ///< Of the icon while there is one.
  UINT untilNextTry_;               ///< To show the icon, in milliseconds.
  bool menuIsOpen_ = false;
};

}  // namespace orvenza
