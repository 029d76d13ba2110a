#pragma once

#include <string>
#include <vector>

#include "core/event_loop.h"
#include "platform/windows/windows_event_pump.h"
#include "ui/layout.h"
#include "ui/windows/gdi_objects.h"
#include "ui/windows/window.h"

namespace orvenza {

class Form;

/// The open forms, the innermost last. Only that one is usable.
struct Desk {
  EventLoop& loop;
  WindowsEventPump& pump;
  std::vector<Form*> forms = {};
};

/// A dialog: its window, fonts and keyboard. Destroying the object closes it.
///
/// Enter presses the focused button, or else the first one; Esc and the title bar's close button close the
/// form.
class Form : public Window {
 public:
  ~Form() override;

  bool IsOpen() const { return Handle() != nullptr; }

  /// Waits for a button press and returns the button's number (see names.h), or 0 when the form is closed.
  /// Throws ProgramEnd if the program ends meanwhile.
  int NextPress();

  void Close();

 protected:
  Form(Desk& desk, const wchar_t* className, const std::string& caption);

  /// Shows the form centred and topmost, with the focus on its control `focused`. `flashing`: the title bar
  /// flashes, and each flash brings the form to the front again.
  void Show(int focused, bool flashing);

  /// Places the controls at `dpi` pixels per inch and returns the size that the form needs.
  virtual Extent Arrange(int dpi) = 0;

  HWND AddControl(const wchar_t* className, const std::string& caption, DWORD style, int id, TextKind kind);
  /// All buttons form one group for the arrow keys; controls added after them begin another.
  void AddButton(const std::string& caption, int id, TextKind kind = TextKind::kButton);
  HWND Control(int id) const { return GetDlgItem(Handle(), id); }
  void Place(int id, const Box& box) const;

  /// Measures the control's caption the way the control draws it.
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
  HWND focus_ = nullptr;  ///< Receives the focus when the form is activated.
  int pressed_ = 0;
  bool placing_ = false;  ///< True while the form moves itself.
};

}  // namespace orvenza
