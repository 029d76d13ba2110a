#pragma once

#include "support/fake_register_panel.h"
#include "ui/windows/names.h"
#include "ui/windows/register_window.h"
#include "windows/form_bench.h"
#include "windows/person.h"

namespace orvenza::test {

/// The text of a window, whatever its length.
std::string WholeText(HWND window);

/// The clipboard's text; "" without one.
std::string ClipboardText();

/// A receipt as the simulated register prints it.
std::vector<RollLine> Receipt(int number, bool voided = false);

/// The simulated register's window in this process, with a panel without a register.
class RegisterBench : public DialogBench {
 protected:
  RegisterBench() { window.Open(); }

  HWND Control(int id) const { return GetDlgItem(window.Handle(), id); }
  std::string Text(int id) const { return TextOf(Control(id)); }
  /// What is in view of the roll.
  std::string InView() const { return WholeText(Control(control_id::kRoll)); }
  bool IsChecked(int id) const { return SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }

  /// Brings the window to the front and waits for the focus.
  void Enter();
  /// Presses Tab until the control has the focus.
  void TabTo(int id);
  void AwaitFocus(int id);
  void AwaitText(int id, const std::string& text);
  /// Delivers what is waiting.
  void Settle() { pump.Dispatch(); }

  FakeRegisterPanel panel;
  RegisterWindow window{pump, panel};
};

}  // namespace orvenza::test
