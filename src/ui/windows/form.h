#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/event_loop.h"
#include "platform/windows/windows_event_pump.h"
#include "ui/layout.h"
#include "ui/windows/gdi_objects.h"
#include "ui/windows/window.h"

namespace orvenza {

class Form;

/// The forms on the screen, the innermost last. Only that one can be used.
struct Desk {
  EventLoop& loop;
  WindowsEventPump& pump;
  std::vector<Form*> forms = {};
};

/// A dialog: its window, fonts and keyboard. Leaves the screen with the object.
///
/// Enter presses the button with the focus, or else the first one; Esc and the title bar's cross close the
/// form.
class Form : public Window {
 public:
  ~Form() override;

  bool IsOpen() const { return Handle() != nullptr; }

  /// Waits for a button to be pressed and returns its number (see names.h); 0 when the form is closed
  /// instead. Throws ProgramEnd when the program is ended meanwhile.
  int NextPress();

  void Close();

 protected:
  Form(Desk& desk, const wchar_t* className, const std::string& caption);

  /// Shows the form centred, in front of everything, with the focus on its control `focused`. `flashing`: its
  /// title bar flashes, and each flash brings the form in front again.
  void Show(int focused, bool flashing);

  /// Places the controls for a screen of `dpi` pixels an inch and returns the size the form needs.
  virtual Extent Arrange(int dpi) = 0;

  HWND AddControl(const wchar_t* className, const std::string& caption, DWORD style, int id, TextKind kind);
  /// All buttons are one group, for the arrow keys; whatever is added behind them begins another.
  void AddButton(const std::string& caption, int id, TextKind kind = TextKind::kButton);
  HWND Control(int id) const { return GetDlgItem(Handle(), id); }
  void Place(int id, const Box& box) const;

  /// Measures the control's caption as the control draws it.
  TextMeasure MeasureOf(int id, UINT format = 0) const;
  /// Height of one line of text, in pixels.
  int LineHeight(TextKind kind) const;

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct OwnedControl {
    HWND window;
    TextKind kind;
  };

  void Leave();
  void ArrangeAt(int left, int top, bool centred);
  void SetFonts(int dpi);
  void SetSmallIcon() const;
  void Flash() const;
  void OnCommand(int id, UINT notification);
  void OnActivate(bool active);
  void MoveFocus(WPARAM target, bool isControl) const;
  void ShowDefaultButton(int id) const;
  bool IsButton(int id) const;
  /// The button that Enter presses.
  int DefaultButton() const;

  Desk& desk_;
  int dpi_ = 96;
  FormFonts fonts_{dpi_};
  std::vector<OwnedControl> controls_;
  std::vector<int> buttons_;
  HWND focus_ = nullptr;  ///< Gets the focus when the form is activated.
  int pressed_ = 0;
  bool placing_ = false;  ///< Being moved by its own doing.
};

}  // namespace orvenza
