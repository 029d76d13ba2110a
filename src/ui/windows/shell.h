#pragma once

#include <windows.h>
// After windows.h, on which it builds.
#include <shellapi.h>

#include <functional>
#include <optional>

namespace orvenza {

/// What the icon asks of the shell.
struct Shell {
  /// Carries out `operation` (NIM_ADD and so on) and returns whether it succeeded, as Shell_NotifyIconA does.
  std::function<bool(DWORD operation, NOTIFYICONDATAA& record)> notify;

  /// Where the icon of `owner` is on the screen; empty when the system does not tell.
  std::function<std::optional<RECT>(HWND owner)> placeOfIcon;
};

/// The system's own.
Shell SystemShell();

}  // namespace orvenza
