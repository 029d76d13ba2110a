#include "ui/windows/console_guard.h"

#include <atomic>

namespace orvenza {
namespace {

// The handler is told nothing but what happened.
std::atomic<HWND> formToClose;
std::atomic<HANDLE> ended;

/// On a thread of the system's own.
BOOL WINAPI OnControl(DWORD event) noexcept {
  PostMessageW(formToClose, WM_CLOSE, 0, 0);
  // After the news of anything but a key the system ends the program as soon as this returns.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) WaitForSingleObject(ended, INFINITE);
  return TRUE;
}

}  // namespace

ConsoleGuard::ConsoleGuard(HWND form) {
  formToClose = form;
  ended = CreateEventW(nullptr, TRUE, FALSE, nullptr);  // never closed: the handler may still wait for it
  SetConsoleCtrlHandler(&OnControl, TRUE);
}

ConsoleGuard::~ConsoleGuard() {
  // First, for the system may hold the list of handlers while one of them runs.
  SetEvent(ended);
  SetConsoleCtrlHandler(&OnControl, FALSE);
}

}  // namespace orvenza
