#include "ui/windows/last_used_window.h"

#include "platform/windows/system_functions.h"

namespace orvenza {
namespace {

/// Shown, but on no screen: so are programs that the system has put to sleep.
bool IsCloaked(HWND window) {
  using AttributeType = HRESULT(WINAPI*)(HWND, DWORD, void*, DWORD);
  static const auto attribute = FindFunction<AttributeType>(L"dwmapi.dll", "DwmGetWindowAttribute");
  constexpr DWORD kCloaked = 14;
  DWORD cloaked = 0;
  return attribute != nullptr && SUCCEEDED(attribute(window, kCloaked, &cloaked, sizeof cloaked)) &&
         cloaked != 0;
}

/// The taskbar is a tool, and so is what lies behind all windows.
bool CanBeUsed(HWND window) {
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
  return IsWindowVisible(window) && IsWindowEnabled(window) && !IsIconic(window) &&
         (style & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE)) == 0 && !IsCloaked(window);
}

/// Stops at the first one that will do. The windows come in their order from the front, the last used before
/// the others.
BOOL CALLBACK Take(HWND window, LPARAM found) {
  if (!CanBeUsed(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

HWND LastUsedWindow() {
  HWND found = nullptr;
  EnumWindows(Take, reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace orvenza
