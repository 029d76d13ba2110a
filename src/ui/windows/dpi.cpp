#include "ui/windows/dpi.h"

#include "platform/windows/system_functions.h"

namespace orvenza {
namespace {

int DesktopDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

}  // namespace

int DpiOf(HWND window) {
  using GetDpiForWindowType = UINT(WINAPI*)(HWND);
  using GetDpiForMonitorType = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);
  static const auto ofWindow = FindFunction<GetDpiForWindowType>(L"user32.dll", "GetDpiForWindow");
  static const auto ofMonitor = FindFunction<GetDpiForMonitorType>(L"shcore.dll", "GetDpiForMonitor");
  UINT dpi = 0;
  if (ofWindow != nullptr) {
    dpi = ofWindow(window);
  } else if (ofMonitor != nullptr) {
    UINT vertical = 0;
    constexpr int kEffective = 0;
    ofMonitor(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), kEffective, &dpi, &vertical);
  }
  return dpi != 0 ? static_cast<int>(dpi) : DesktopDpi();
}

int SmallIconSize(int dpi) {
  using MetricsType = int(WINAPI*)(int, UINT);
  static const auto metrics = FindFunction<MetricsType>(L"user32.dll", "GetSystemMetricsForDpi");
  return metrics != nullptr ? metrics(SM_CXSMICON, static_cast<UINT>(dpi)) : GetSystemMetrics(SM_CXSMICON);
}

Extent OuterSize(HWND window, Extent form, int dpi) {
  using AdjustType = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
  static const auto adjustForDpi = FindFunction<AdjustType>(L"user32.dll", "AdjustWindowRectExForDpi");
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
  const auto extendedStyle = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
  RECT edges{0, 0, form.width, form.height};
  if (adjustForDpi != nullptr) {
    adjustForDpi(&edges, style, FALSE, extendedStyle, static_cast<UINT>(dpi));
  } else {
    AdjustWindowRectEx(&edges, style, FALSE, extendedStyle);
  }
  return {edges.right - edges.left, edges.bottom - edges.top};
}

Extent ScreenSize() { return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}; }

}  // namespace orvenza
