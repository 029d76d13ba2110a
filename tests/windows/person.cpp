#include "windows/person.h"

#include "platform/windows/wide.h"

namespace orvenza::test {
namespace {

/// Without it, Windows would present any screen to this program as having 96 pixels per inch.
[[maybe_unused]] const BOOL kSeesPixels = SetProcessDPIAware();

void Send(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

}  // namespace

int ScreenDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  return name;
}

std::string TextOf(HWND window) {
  std::wstring text(1024, L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return ToUtf8(text);
}

std::string TextOf(HWND form, int id) { return TextOf(GetDlgItem(form, id)); }

GUITHREADINFO StateOf(HWND window) {
  GUITHREADINFO state{};
  state.cbSize = sizeof state;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &state);
  return state;
}

HWND FocusOf(HWND form) { return StateOf(form).hwndFocus; }

int FocusedId(HWND form) { return GetDlgCtrlID(FocusOf(form)); }

bool IsReady(HWND form) {
  return form != nullptr && IsWindowEnabled(form) && GetForegroundWindow() == form &&
         FocusOf(form) != nullptr && IsChild(form, FocusOf(form));
}

RECT PlaceOf(HWND form, int id) {
  RECT place{};
  GetWindowRect(GetDlgItem(form, id), &place);
  MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

void Press(WORD key) {
  Send(key, 0);
  Send(key, KEYEVENTF_KEYUP);
}

void PressWith(WORD modifier, WORD key) {
  Send(modifier, 0);
  Press(key);
  Send(modifier, KEYEVENTF_KEYUP);
}

void PressWithAlt(WORD key) { PressWith(VK_MENU, key); }

void ClickAt(LONG x, LONG y) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  // Coordinates on a screen that is 65536 wide and high.
  input.mi.dx = MulDiv(x, 65536, GetSystemMetrics(SM_CXSCREEN));
  input.mi.dy = MulDiv(y, 65536, GetSystemMetrics(SM_CYSCREEN));
  for (const DWORD button : {DWORD{0}, DWORD{MOUSEEVENTF_LEFTDOWN}, DWORD{MOUSEEVENTF_LEFTUP}}) {
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | button;
    SendInput(1, &input, sizeof input);
  }
}

void TurnWheel(int notches) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = MOUSEEVENTF_WHEEL;
  input.mi.mouseData = static_cast<DWORD>(notches * WHEEL_DELTA);
  SendInput(1, &input, sizeof input);
}

void Click(HWND form, int id) {
  RECT place{};
  GetWindowRect(GetDlgItem(form, id), &place);
  ClickAt((place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

void CloseByCross(HWND form) { PostMessageW(form, WM_SYSCOMMAND, SC_CLOSE, 0); }

}  // namespace orvenza::test
