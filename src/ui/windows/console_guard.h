#pragma once

#include <windows.h>

namespace orvenza {

/// Ends the program in order when its console asks for the end: Ctrl+C, or closing the console's window. The
/// system would end it immediately, even in the middle of a receipt. Create it after the console is attached,
/// which would undo it. Without a console it has no effect. At most one object may exist.
class ConsoleGuard {
 public:
  /// `form` receives the request to close.
  explicit ConsoleGuard(HWND form);
  ~ConsoleGuard();
  ConsoleGuard(const ConsoleGuard&) = delete;
  ConsoleGuard& operator=(const ConsoleGuard&) = delete;
};

}  // namespace orvenza
