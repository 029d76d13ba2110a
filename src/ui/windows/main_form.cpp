#include "ui/windows/main_form.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "platform/windows/wide.h"
#include "ui/windows/dpi.h"
#include "ui/windows/icon_record.h"
#include "ui/windows/names.h"

namespace orvenza {
namespace {

/// In milliseconds. The rest of the program stops while the menu is open.
constexpr UINT kLongestMenu = 30000;

/// In milliseconds, between attempts to show the icon. The interval doubles each time: every attempt at a
/// hanging shell blocks the program.
constexpr UINT kFirstTry = 1000;
constexpr UINT kRarestTry = 60000;

/// Masks out the bits of WM_SYSCOMMAND's first parameter that the system uses internally.
constexpr WPARAM kSystemCommand = 0xFFF0;

/// The number in the menu of the item that was added to the connector's own.
constexpr int kAddedItem = static_cast<int>(std::tuple_size_v<decltype(MenuCaptions())>) + 1;

}  // namespace

Picture::Picture(HWND form, const Shell& shell, std::function<void()> pressed)
    : shell_(shell), pressed_(std::move(pressed)) {
  Create(window_class::kPicture1, {}, WS_CHILD, 0, form, control_id::kPicture1);
}

Picture::~Picture() { Destroy(); }

bool Picture::AddIcon(const std::string& tip) const {
  const HWND taskbar = FindWindowW(L"Shell_TrayWnd", nullptr);
  NOTIFYICONDATAA record = IconRecord(Handle(), tip, SmallIconSize(DpiOf(taskbar)));
  return shell_.notify(NIM_ADD, record) || shell_.notify(NIM_MODIFY, record);
}

void Picture::DeleteIcon() const {
  NOTIFYICONDATAA record = IconRecord(Handle());
  shell_.notify(NIM_DELETE, record);
}

LRESULT Picture::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kIconMessage && (lParam == WM_LBUTTONDOWN || lParam == WM_RBUTTONDOWN)) {
    pressed_();
    return 0;
  }
  return Window::OnMessage(message, wParam, lParam);
}

MainForm::MainForm(const std::string& caption, MainFormEvents events, Shell shell)
    : events_(std::move(events)),
      shell_(std::move(shell)),
      taskbarCreated_(RegisterWindowMessageW(L"TaskbarCreated")),
      untilNextTry_(kFirstTry) {
  Create(window_class::kOrvMain, caption, WS_OVERLAPPEDWINDOW | WS_MINIMIZE, 0, nullptr);
  Centre();
  // Without this the shell could not send the message to a program with higher rights.
  ChangeWindowMessageFilterEx(Handle(), taskbarCreated_, MSGFLT_ALLOW, nullptr);
  picture1_.emplace(Handle(), shell_, [this] { PopUp(); });
}

MainForm::~MainForm() {
  DeleteIcon();
  picture1_.reset();
  Destroy();
}

void MainForm::CreateIcon(const std::string& tip) {
  SetWindowTextW(Handle(), ToWide(tip).c_str());
  tip_ = tip;
  ShowIcon();
}

/// Right after sign-in the shell may not be ready, and a busy shell does not take an icon either.
void MainForm::ShowIcon() {
  if (!tip_) return;
  KillTimer(Handle(), kTmrIcon);
  if (picture1_->AddIcon(*tip_)) {
    untilNextTry_ = kFirstTry;
  } else {
    SetTimer(Handle(), kTmrIcon, untilNextTry_, nullptr);
    untilNextTry_ = std::min(2 * untilNextTry_, kRarestTry);
  }
}

void MainForm::DeleteIcon() {
  if (tip_) picture1_->DeleteIcon();
  tip_.reset();
  KillTimer(Handle(), kTmrIcon);
}

LRESULT MainForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == taskbarCreated_) {
    // The shell restarted without its icons, or the screen's resolution changed.
    ShowIcon();
    return 0;
  }
  switch (message) {
    case WM_WINDOWPOSCHANGING: reinterpret_cast<WINDOWPOS*>(lParam)->flags &= ~UINT{SWP_SHOWWINDOW}; return 0;
    case WM_SIZE: OnSize(wParam); return 0;
    case WM_QUERYENDSESSION: return TRUE;
    case WM_ENDSESSION:
      if (wParam != FALSE) End();
      return 0;
    case WM_SYSCOMMAND:
      // Alt+F4 while the hidden form has the focus does not end the program.
      if ((wParam & kSystemCommand) == SC_CLOSE) return 0;
      return Window::OnMessage(message, wParam, lParam);
    case WM_CLOSE: End(); return 0;
    case WM_TIMER:
      if (wParam == kTmrIcon) {
        ShowIcon();
      } else {
        EndMenu();
      }
      return 0;
    default: return Window::OnMessage(message, wParam, lParam);
  }
}

/// Puts the hidden form where a visible one would be.
void MainForm::Centre() const {
  const Extent screen = ScreenSize();
  WINDOWPLACEMENT place{};
  place.length = sizeof place;
  place.showCmd = SW_HIDE;
  place.rcNormalPosition = {screen.width / 4, screen.height / 4, screen.width - screen.width / 4,
                            screen.height - screen.height / 4};
  SetWindowPlacement(Handle(), &place);
}

/// If the form is restored from outside, it is minimised and hidden again, with its icon in place.
void MainForm::OnSize(WPARAM state) {
  if (state != SIZE_MINIMIZED) {
    ShowWindow(Handle(), SW_MINIMIZE);
    return;
  }
  ShowIcon();
  ShowWindow(Handle(), SW_HIDE);
}

/// While the menu is open, the program could not act on the request.
void MainForm::End() {
  EndMenu();
  events_.end();
}

/// The pointer's position, or that of the icon if the icon was opened by keyboard, with the pointer
/// elsewhere.
POINT MainForm::PlaceOfMenu() const {
  POINT place{};
  GetCursorPos(&place);
  const std::optional<RECT> icon = shell_.placeOfIcon(picture1_->Handle());
  if (!icon || PtInRect(&*icon, place)) return place;
  return {(icon->left + icon->right) / 2, (icon->top + icon->bottom) / 2};
}

void MainForm::AddMenuItem(std::string caption, std::function<void()> chosen) {
  added_ = {std::move(caption), std::move(chosen)};
}

Menu MainForm::MakePopUp() const {
  Menu menu(CreatePopupMenu());
  UINT_PTR id = 0;
  const auto add = [&](const std::string& caption) {
    if (id != 0) AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.Get(), MF_STRING, ++id, ToWide(caption).c_str());
  };
  for (const std::string& caption : MenuCaptions()) add(caption);
  if (added_) add(added_->caption);
  return menu;
}

/// Zero: the menu closed without a choice.
void MainForm::Choose(int item) const {
  if (item == 0) return events_.menuClosed();
  if (item == kAddedItem) return added_->chosen();
  events_.chosen(static_cast<MenuItem>(item - 1));
}

void MainForm::PopUp() {
  // A second menu would end the timer of the first one.
  if (menuIsOpen_) return;
  menuIsOpen_ = true;
  const Menu menu = MakePopUp();
  const POINT place = PlaceOfMenu();
  // Without the foreground, and the message afterwards, the menu would not close when the operator clicks
  // elsewhere.
  SetForegroundWindow(Handle());
  SetTimer(Handle(), kTmrMenu, kLongestMenu, nullptr);
  const int item = TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, place.x,
                                  place.y, 0, Handle(), nullptr);
  KillTimer(Handle(), kTmrMenu);
  menuIsOpen_ = false;
  PostMessageW(Handle(), WM_NULL, 0, 0);
  Choose(item);
}

}  // namespace orvenza
