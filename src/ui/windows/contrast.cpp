#include "ui/windows/contrast.h"

#include "platform/windows/system_functions.h"

namespace orvenza {
namespace {

bool ContrastIsHigh() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool StandsOnTheForm(HWND control) {
  wchar_t name[16] = L"";
  GetClassNameW(control, name, 16);
  const auto type = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
  return lstrcmpiW(name, L"BUTTON") == 0 &&
         (type == BS_AUTORADIOBUTTON || type == BS_GROUPBOX || type == BS_AUTOCHECKBOX);
}

}  // namespace

void KeepReadable(HWND control) {
  using SetThemeType = HRESULT(WINAPI*)(HWND, PCWSTR, PCWSTR);
  static const auto setTheme = FindFunction<SetThemeType>(L"uxtheme.dll", "SetWindowTheme");
  if (setTheme != nullptr && StandsOnTheForm(control) && ContrastIsHigh()) setTheme(control, L"", L"");
}

}  // namespace orvenza
