#pragma once

#include <windows.h>
// Requires windows.h.
#include <shellapi.h>

#include <functional>
#include <optional>

namespace orvenza {

/// The shell functions that the icon needs.
struct Shell {
  /// Performs `operation` (NIM_ADD etc.) and returns whether it succeeded, like Shell_NotifyIconA.
  std::function<bool(DWORD operation, NOTIFYICONDATAA& record)> notify;

  /// Screen position of the icon of `owner`; empty if the system does not provide it.
  std::function<std::optional<RECT>(HWND owner)> placeOfIcon;
};

/// Calls the system's shell.
Shell SystemShell();

}  // namespace orvenza
