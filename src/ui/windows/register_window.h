#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/windows_event_pump.h"
#include "ui/register_layout.h"
#include "ui/register_panel.h"
#include "ui/windows/gdi_objects.h"
#include "ui/windows/roll_view.h"
#include "ui/windows/window.h"

namespace orvenza {

/// The window `Orv_Register` of the simulated register: its roll, switches, faults and counters. It is usable
/// at any time, also while a dialog waits, and never comes to the front or takes the keyboard by itself.
/// Closing it only hides it.
class RegisterWindow final : public Window {
 public:
  /// Hidden until Open. `pump` and `panel` outlive the window, which is the panel's only observer. Throws
  /// SystemError.
  RegisterWindow(WindowsEventPump& pump, RegisterPanel& panel);
  ~RegisterWindow() override;
  RegisterWindow(const RegisterWindow&) = delete;
  RegisterWindow& operator=(const RegisterWindow&) = delete;

  /// Shows the window at the right edge of the screen, above other windows, without the keyboard.
  void Open();

  /// Shows the window wherever it was, and gives it the keyboard.
  void BringBack();

 private:
  struct OwnedControl {
    HWND window;
    bool bold;
  };

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  void AddControls();
  void AddText(const std::string& text, DWORD style, int id, bool bold = false);
  void AddButton(const std::string& caption, DWORD style, int id);
  HWND AddControl(const wchar_t* className, const std::string& caption, DWORD style, int id, bool bold);
  void AddSwitches();
  void AddFaults();
  HWND Control(int id) const { return GetDlgItem(Handle(), id); }

  void SetFonts(int dpi);
  RegisterParts Parts() const;
  int WidthOfFaults() const;
  void Arrange() const;
  void Place(int id, const Box& box) const;
  void LimitSize(MINMAXINFO& limits) const;
  Extent LeastSize() const;
  void OnDpi(int dpi, const RECT& suggested);
  LRESULT ColourOf(HDC dc, HWND control) const;

  void OnActivate(UINT how, HWND other);
  void PassOn() const;
  void Hide() const;
  void MoveFocus(WPARAM target, bool isControl) const;
  int DefaultButton() const;
  void ShowDefault(int id, bool isDefault) const;
  void OnCommand(int id, UINT notification);
  void OnButton(int id);

  void Refresh();
  void ShowSwitches() const;
  void ShowFault();
  void ShowCounters() const;
  void Turn(int id);
  void Choose(bool once);
  void SwitchFaultOff();
  void CopyScenario() const;
  std::string FaultSentence(const char* what, const ChosenFault& fault) const;
  void Say(const std::string& status) const;

  WindowsEventPump& pump_;
  RegisterPanel& panel_;
  int dpi_ = 96;
  Font plain_;
  Font bold_;
  std::vector<OwnedControl> controls_;
  std::optional<RollView> roll_;
  int switches_ = 0;
  std::optional<ChosenFault> shownFault_;
  HWND focus_ = nullptr;  ///< Receives the focus when the window is activated.
  bool entered_ = false;  ///< Somebody has used the window since it was shown.
  bool noted_ = false;    ///< A change of the panel waits to be shown.
};

}  // namespace orvenza
