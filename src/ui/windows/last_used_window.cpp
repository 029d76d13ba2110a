#include "ui/windows/last_used_window.h"

#include "platform/windows/system_functions.h"

namespace orvenza {
namespace {

/// Visible but not on any screen, like a suspended program.
bool IsCloaked(HWND window) {
  using AttributeType = HRESULT(WINAPI*)(HWND, DWORD, void*, DWORD);
  static const auto attribute = FindFunction<AttributeType>(L"dwmapi.dll", "DwmGetWindowAttribute");
  constexpr DWORD kCloaked = 14;
  DWORD cloaked = 0;
  return attribute != nullptr && SUCCEEDED(attribute(window, kCloaked, &cloaked, sizeof cloaked)) &&
         cloaked != 0;
}

/// The taskbar and the desktop behind all windows are tool windows.
bool CanBeUsed(HWND window) {
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
  return IsWindowVisible(window) && IsWindowEnabled(window) && !IsIconic(window) &&
         (style & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE)) == 0 && !IsCloaked(window);
}

struct Search {
  HWND except;
  HWND found = nullptr;
};

/// Stops at the first usable window. Windows are enumerated from the front, the last used first.
BOOL CALLBACK Take(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (window == search.except || !CanBeUsed(window)) return TRUE;
  search.found = window;
  return FALSE;
}

}  // namespace

HWND LastUsedWindow(HWND except) {
  Search search{except};
  EnumWindows(Take, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace orvenza
