#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ui/menu.h"
#include "ui/windows/gdi_objects.h"
#include "ui/windows/shell.h"
#include "ui/windows/window.h"

namespace orvenza {

/// Requests that the operator or the system makes through the main form.
struct MainFormEvents {
  std::function<void(MenuItem)> chosen;  ///< An item of the menu.
  std::function<void()> end;             ///< The Windows session ends, or another program closed the form.
  std::function<void()>
      menuClosed;  ///< The menu closed without a choice. The form may still be in the foreground.
};

/// The picture box that owns the icon and receives its messages.
class Picture final : public Window {
 public:
  /// `pressed` is called from inside the window procedure when the icon is clicked with the left or the right
  /// button. `shell` outlives the picture.
  Picture(HWND form, const Shell& shell, std::function<void()> pressed);
  ~Picture() override;
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  /// Adds the icon to the notification area or updates the existing one. False when the shell refused both.
  bool AddIcon(const std::string& tip) const;
  void DeleteIcon() const;

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  const Shell& shell_;
  std::function<void()> pressed_;
};

/// The main form `Orv_Main`: owns icon and menu and is always hidden.
class MainForm final : public Window {
 public:
  /// `events` are called from inside the window procedure and must not throw.
  MainForm(const std::string& caption, MainFormEvents events, Shell shell = SystemShell());
  ~MainForm() override;
  MainForm(const MainForm&) = delete;
  MainForm& operator=(const MainForm&) = delete;

  /// Retries until the shell takes the icon. A failure is not reported.
  void CreateIcon(const std::string& tip);
  void DeleteIcon();

  /// Adds one more item to the menu, below the others. `chosen` is called like the events.
  void AddMenuItem(std::string caption, std::function<void()> chosen);

 private:
  struct AddedItem {
    std::string caption;
    std::function<void()> chosen;
  };

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void ShowIcon();
  void OnSize(WPARAM state);
  void Centre() const;
  POINT PlaceOfMenu() const;
  void PopUp();
  Menu MakePopUp() const;
  void Choose(int item) const;
  void End();

  MainFormEvents events_;
  const Shell shell_;
  const UINT taskbarCreated_;
  std::optional<Picture> picture1_;
  std::optional<AddedItem> added_;
  std::optional<std::string> tip_;  ///< The icon's tip; empty while there is no icon.
  UINT untilNextTry_;               ///< Interval to the next attempt to show the icon, in milliseconds.
  bool menuIsOpen_ = false;
};

}  // namespace orvenza
