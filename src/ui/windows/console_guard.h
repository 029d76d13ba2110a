#pragma once

#include <windows.h>

namespace orvenza {

/// Ends the program in order when its console wants its end: Ctrl+C, or the console's window is closed. The
/// system would end it at once, in the middle of a receipt. To be made after the console is attached, which
/// would undo it. Without a console it has no effect. There is at most one.
class ConsoleGuard {
 public:
  /// `form` is asked to close.
  explicit ConsoleGuard(HWND form);
  ~ConsoleGuard();
  ConsoleGuard(const ConsoleGuard&) = delete;
  ConsoleGuard& operator=(const ConsoleGuard&) = delete;
};

}  // namespace orvenza
