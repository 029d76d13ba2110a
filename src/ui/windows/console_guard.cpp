#include "ui/windows/console_guard.h"

#include <atomic>

namespace orvenza {
namespace {

// Global, since the handler gets no context.
std::atomic<HWND> formToClose;
std::atomic<HANDLE> ended;

/// Runs on a thread of the system.
BOOL WINAPI OnControl(DWORD event) noexcept {
  PostMessageW(formToClose, WM_CLOSE, 0, 0);
  // After any event but a key the system ends the program as soon as this returns.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) WaitForSingleObject(ended, INFINITE);
  return TRUE;
}

}  // namespace

ConsoleGuard::ConsoleGuard(HWND form) {
  formToClose = form;
  ended =
      CreateEventW(nullptr, TRUE, FALSE, nullptr);  // never closed: the handler may still be waiting for it
  SetConsoleCtrlHandler(&OnControl, TRUE);
}

ConsoleGuard::~ConsoleGuard() {
  // First, since the system may lock the list of handlers while one of them runs.
  SetEvent(ended);
  SetConsoleCtrlHandler(&OnControl, FALSE);
}

}  // namespace orvenza
