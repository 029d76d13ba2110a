#include "ui/windows/form.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/windows/wide.h"
#include "ui/windows/contrast.h"
#include "ui/windows/dpi.h"
#include "ui/windows/names.h"
#include "ui/windows/text_measure.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr UINT kFlashInterval = 500;
constexpr UINT kTopmostFlags = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW;
static_assert(kTopmostFlags == 83);

/// A press is an event and ends the wait at once. Closing the form from another program is noticed after at
/// most this time.
constexpr auto kLongestWait = 100ms;

HWND OwnerOf(const Desk& desk) { return desk.forms.empty() ? nullptr : desk.forms.back()->Handle(); }

/// True while the menu of the notification area is open: the form would cover it.
bool MenuIsOpen() {
  GUITHREADINFO state{};
  state.cbSize = sizeof state;
  return GetGUIThreadInfo(GetCurrentThreadId(), &state) && (state.flags & GUI_INMENUMODE) != 0;
}

/// Only the innermost form is usable.
void EnableInnermost(const Desk& desk) {
  for (const Form* form : desk.forms) EnableWindow(form->Handle(), form == desk.forms.back());
}

}  // namespace

Form::Form(Desk& desk, const wchar_t* className, const std::string& caption) : desk_(desk) {
  Create(className, caption, WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_CONTROLPARENT, OwnerOf(desk));
  SetFonts(DpiOf(Handle()));
  desk_.forms.push_back(this);
  desk_.pump.AddDialog(Handle());
}

Form::~Form() { Close(); }

void Form::Close() {
  Leave();
  Destroy();
}

/// Removes the form from the desk. The next form must be enabled before this window is destroyed, or the
/// system would activate another program.
void Form::Leave() {
  const auto self = std::find(desk_.forms.begin(), desk_.forms.end(), this);
  if (self == desk_.forms.end()) return;
  desk_.forms.erase(self);
  desk_.pump.RemoveDialog(Handle());
  EnableInnermost(desk_);
}

int Form::NextPress() {
  while (IsOpen() && pressed_ == 0) desk_.loop.Wait(kLongestWait);
  return IsOpen() ? std::exchange(pressed_, 0) : 0;
}

void Form::Show(int focused, bool flashing) {
  ArrangeAt(0, 0, true);
  SetSmallIcon();
  EnableInnermost(desk_);
  focus_ = Control(focused);
  ShowDefaultButton(buttons_.front());
  // Overrides the state requested for the program's first window: a minimised form would not be seen.
  ShowWindow(Handle(), SW_RESTORE);
  SetWindowPos(Handle(), HWND_TOPMOST, 0, 0, 0, 0, kTopmostFlags);
  SetForegroundWindow(Handle());
  SetFocus(focus_);
  if (flashing) SetTimer(Handle(), kTmrFlash, kFlashInterval, nullptr);
}

HWND Form::AddControl(const wchar_t* className, const std::string& caption, DWORD style, int id,
                      TextKind kind) {
  const auto number = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
  const HWND control = CreateWindowExW(0, className, ToWide(caption).c_str(), WS_CHILD | WS_VISIBLE | style,
                                       0, 0, 0, 0, Handle(), number, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Of(kind)), FALSE);
  KeepReadable(control);
  controls_.push_back({control, kind});
  return control;
}

void Form::AddButton(const std::string& caption, int id, TextKind kind) {
  const DWORD group = buttons_.empty() ? WS_GROUP : 0;
  AddControl(L"BUTTON", caption, BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP | group, id, kind);
  buttons_.push_back(id);
}

void Form::Place(int id, const Box& box) const {
  SetWindowPos(Control(id), nullptr, box.left, box.top, box.width, box.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

TextMeasure Form::MeasureOf(int id, UINT format) const { return MeasureTextOf(Control(id), format); }

int Form::LineHeight(TextKind kind) const { return LineHeightOf(Handle(), fonts_.Of(kind)); }

void Form::SetFonts(int dpi) {
  FormFonts fonts(dpi);
  for (const OwnedControl& control : controls_) {
    SendMessageW(control.window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Of(control.kind)), FALSE);
  }
  fonts_ = std::move(fonts);
  dpi_ = dpi;
}

void Form::ArrangeAt(int left, int top, bool centred) {
  const Extent size = OuterSize(Handle(), Arrange(dpi_), dpi_);
  if (centred) {
    const Extent screen = ScreenSize();
    left = (screen.width - size.width) / 2;
    top = (screen.height - size.height) / 2;
  }
  placing_ = true;
  SetWindowPos(Handle(), nullptr, left, top, size.width, size.height, SWP_NOZORDER | SWP_NOACTIVATE);
  placing_ = false;
  InvalidateRect(Handle(), nullptr, TRUE);
}

LRESULT Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (IsWindowEnabled(Handle())) OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_CLOSE:
      if (IsWindowEnabled(Handle())) Close();
      return 0;
    case WM_ACTIVATE: OnActivate(LOWORD(wParam) != WA_INACTIVE); return 0;
    case WM_SETFOCUS: SetFocus(focus_); return 0;
    case WM_TIMER: Flash(); return 0;
    case WM_NEXTDLGCTL: MoveFocus(wParam, LOWORD(lParam) != 0); return 0;
    case DM_GETDEFID: return MAKELRESULT(DefaultButton(), DC_HASDEFID);
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      SetTextColor(reinterpret_cast<HDC>(wParam), kTextColour);
      SetBkColor(reinterpret_cast<HDC>(wParam), kFormColour);
      return reinterpret_cast<LRESULT>(FormBrush());
    case WM_DPICHANGED: {
      // The form's size at the new resolution may move it back to the first screen, which would repeat
      // endlessly.
      if (placing_) return 0;
      const auto* const suggested = reinterpret_cast<const RECT*>(lParam);
      SetFonts(LOWORD(wParam));
      SetSmallIcon();
      ArrangeAt(suggested->left, suggested->top, false);
      return 0;
    }
    default: return Window::OnMessage(message, wParam, lParam);
  }
}

void Form::SetSmallIcon() const {
  const HICON icon = ProgramIcon(SmallIconSize(dpi_));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

/// Otherwise a topmost full-screen program would cover the form for good. The focus is not changed.
void Form::Flash() const {
  FlashWindow(Handle(), TRUE);
  if (IsWindowEnabled(Handle()) && !MenuIsOpen()) {
    SetWindowPos(Handle(), HWND_TOPMOST, 0, 0, 0, 0, kTopmostFlags);
  }
}

void Form::OnCommand(int id, UINT notification) {
  if (id == IDCANCEL) return Close();
  if (!IsButton(id)) return;
  if (notification == BN_CLICKED) pressed_ = id;
  if (notification == BN_SETFOCUS) ShowDefaultButton(id);
  if (notification == BN_KILLFOCUS) ShowDefaultButton(buttons_.front());
}

/// The focus returns to the same control when the operator returns to the form.
void Form::OnActivate(bool active) {
  const HWND focused = GetFocus();
  if (active) {
    SetFocus(focus_);
  } else if (focused != nullptr && IsChild(Handle(), focused)) {
    focus_ = focused;
  }
}

/// Moves the focus by keyboard: to the control `target`, or else to the next or previous control.
void Form::MoveFocus(WPARAM target, bool isControl) const {
  const HWND next =
      isControl ? reinterpret_cast<HWND>(target) : GetNextDlgTabItem(Handle(), GetFocus(), target != 0);
  if (next != nullptr) SetFocus(next);
}

/// Only the button that Enter presses is drawn as the default.
void Form::ShowDefaultButton(int id) const {
  for (const int button : buttons_) {
    const WPARAM style = (button == id ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_NOTIFY;
    SendMessageW(Control(button), BM_SETSTYLE, style, TRUE);
  }
}

bool Form::IsButton(int id) const {
  return std::find(buttons_.begin(), buttons_.end(), id) != buttons_.end();
}

int Form::DefaultButton() const {
  const int focused = GetDlgCtrlID(GetFocus());
  return IsButton(focused) ? focused : buttons_.front();
}

}  // namespace orvenza
