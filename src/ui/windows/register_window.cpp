#include "ui/windows/register_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/own_texts.h"
#include "platform/windows/wide.h"
#include "ui/register_texts.h"
#include "ui/windows/clipboard.h"
#include "ui/windows/contrast.h"
#include "ui/windows/dpi.h"
#include "ui/windows/last_used_window.h"
#include "ui/windows/names.h"
#include "ui/windows/text_measure.h"

namespace orvenza {
namespace {

using namespace control_id;

constexpr int kPoints = 9;
constexpr COLORREF kAlarmColour = RGB(128, 0, 0);

constexpr UINT kPanelChanged = WM_APP;
constexpr UINT kPassOn = WM_APP + 1;

constexpr DWORD kText = SS_NOPREFIX | SS_EDITCONTROL;

// In form units.
constexpr int kBesidesEntry = 120;  ///< Width of what a list draws beside its entries.
constexpr int kBetweenEntries = 30;

constexpr int kButtons[] = {kSaveRoll, kNextCommand, kUntilOff, kSwitchOff, kCopyScenario};

constexpr DWORD kPush = BS_PUSHBUTTON | BS_NOTIFY;

/// The mnemonics of the captions that are always the same.
constexpr const char* kLettersTaken = "rsgpfdc";

/// Changes the text if it is another one, and returns whether it was.
bool ChangeText(HWND control, const std::string& text) {
  const std::wstring wide = ToWide(text);
  std::wstring before(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  before.resize(
      static_cast<std::size_t>(GetWindowTextW(control, before.data(), static_cast<int>(before.size()))));
  if (before == wide) return false;
  SetWindowTextW(control, wide.c_str());
  return true;
}

RECT WorkArea() {
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  return area;
}

/// Whether `window` is one of this program's, hidden by now.
bool IsHiddenOfThisThread(HWND window) {
  return window != nullptr && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() &&
         !IsWindowVisible(window);
}

}  // namespace

RegisterWindow::RegisterWindow(WindowsEventPump& pump, RegisterPanel& panel) : pump_(pump), panel_(panel) {
  Create(window_class::kOrvRegister, own_text::kPanel, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
         WS_EX_CONTROLPARENT, nullptr);
  dpi_ = DpiOf(Handle());
  AddControls();
  SetFonts(dpi_);
  focus_ = roll_->Handle();
  pump_.AddDialog(Handle());
  panel_.SetObserver([this] {
    if (!noted_) noted_ = PostMessageW(Handle(), kPanelChanged, 0, 0) != FALSE;
  });
  Refresh();
}

RegisterWindow::~RegisterWindow() {
  panel_.SetObserver(nullptr);
  pump_.RemoveDialog(Handle());
  Destroy();
}

void RegisterWindow::Open() {
  const Extent size = OuterSize(Handle(), UsualRegister(Parts(), dpi_), dpi_);
  const RECT area = WorkArea();
  const int width = std::min<int>(size.width, area.right - area.left);
  const int height = std::min<int>(size.height, area.bottom - area.top);
  SetWindowPos(Handle(), HWND_TOP, area.right - width, area.top, width, height,
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void RegisterWindow::BringBack() {
  entered_ = true;
  // Neither is overridden by the state requested for the program's first window.
  ShowWindow(Handle(), IsIconic(Handle()) ? SW_RESTORE : SW_SHOWNA);
  SetForegroundWindow(Handle());
}

/// The controls are created in the order of the Tab key.
void RegisterWindow::AddControls() {
  AddText(own_text::kRollLabel, SS_LEFT, kRollHeading, true);
  roll_.emplace(Handle(), kRoll, panel_, dpi_);
  AddButton(own_text::kSaveRollButton, kPush | WS_GROUP, kSaveRoll);
  AddText(own_text::kSwitchesLabel, SS_LEFT, kSwitchesHeading, true);
  AddSwitches();
  AddText(own_text::kFaultsLabel, SS_LEFT | WS_GROUP, kFaultsHeading, true);
  AddFaults();
  AddButton(own_text::kNextCommandButton, kPush | WS_GROUP, kNextCommand);
  AddButton(own_text::kUntilOffButton, kPush, kUntilOff);
  AddText({}, kText | WS_GROUP, kChosenFault);
  AddButton(own_text::kSwitchOffButton, kPush | WS_GROUP, kSwitchOff);
  AddText(own_text::kCountersLabel, SS_LEFT, kCountersHeading, true);
  AddText({}, kText, kCounters);
  AddButton(own_text::kCopyScenarioButton, kPush | WS_GROUP, kCopyScenario);
  AddText({}, kText | WS_GROUP, kStatus);
}

void RegisterWindow::AddText(const std::string& text, DWORD style, int id, bool bold) {
  AddControl(L"STATIC", text, style, id, bold);
}

void RegisterWindow::AddButton(const std::string& caption, DWORD style, int id) {
  AddControl(L"BUTTON", caption, style | WS_TABSTOP, id, false);
}

HWND RegisterWindow::AddControl(const wchar_t* className, const std::string& caption, DWORD style, int id,
                                bool bold) {
  const auto number = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
  const HWND control = CreateWindowExW(0, className, ToWide(caption).c_str(), WS_CHILD | WS_VISIBLE | style,
                                       0, 0, 0, 0, Handle(), number, GetModuleHandleW(nullptr), nullptr);
  KeepReadable(control);
  controls_.push_back({control, bold});
  return control;
}

void RegisterWindow::AddSwitches() {
  std::vector<std::string> captions;
  for (const PanelSwitch& one : panel_.Switches()) captions.push_back(one.caption);
  int id = kSwitch;
  for (const std::string& caption : WithMnemonics(captions, kLettersTaken)) {
    AddButton(caption, BS_AUTOCHECKBOX | (id == kSwitch ? WS_GROUP : 0U), id);
    ++id;
  }
  switches_ = id - kSwitch;
}

void RegisterWindow::AddFaults() {
  const HWND list =
      AddControl(L"LISTBOX", {}, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_BORDER | WS_TABSTOP,
                 kFaults, false);
  for (const std::string& fault : panel_.Faults())
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(fault).c_str()));
  SendMessageW(list, LB_SETCURSEL, 0, 0);
}

void RegisterWindow::SetFonts(int dpi) {
  Font plain = MakeFont({kPlainFace, VARIABLE_PITCH | FF_SWISS, kPoints}, dpi);
  Font bold = MakeFont({kPlainFace, VARIABLE_PITCH | FF_SWISS, kPoints, FW_BOLD}, dpi);
  for (const OwnedControl& control : controls_) {
    const HFONT font = (control.bold ? bold : plain).Get();
    SendMessageW(control.window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  }
  plain_ = std::move(plain);
  bold_ = std::move(bold);
  dpi_ = dpi;
  roll_->SetDpi(dpi);
  const int line = LineHeightOf(Handle(), plain_.Get());
  SendMessageW(Control(kFaults), LB_SETITEMHEIGHT, 0, line + Pixels(kBetweenEntries, dpi_));
  const HICON icon = ProgramIcon(SmallIconSize(dpi_));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

RegisterParts RegisterWindow::Parts() const {
  RegisterParts parts;
  parts.rollWidth = roll_->FullWidth();
  parts.rollLine = roll_->LineHeight();
  parts.textLine = LineHeightOf(Handle(), bold_.Get());
  parts.listWidth = WidthOfFaults();
  parts.listEntry = static_cast<int>(SendMessageW(Control(kFaults), LB_GETITEMHEIGHT, 0, 0));
  parts.listBorder = 2 * GetSystemMetrics(SM_CYBORDER);
  parts.faults = static_cast<int>(panel_.Faults().size());
  parts.save = MeasureTextOf(Control(kSaveRoll));
  parts.nextCommand = MeasureTextOf(Control(kNextCommand));
  parts.untilOff = MeasureTextOf(Control(kUntilOff));
  parts.switchOff = MeasureTextOf(Control(kSwitchOff));
  parts.copy = MeasureTextOf(Control(kCopyScenario));
  for (int i = 0; i < switches_; ++i) parts.switches.push_back(MeasureTextOf(Control(kSwitch + i)));
  parts.counters = MeasureTextOf(Control(kCounters), DT_NOPREFIX);
  return parts;
}

/// Width at which the list shows every fault in full.
int RegisterWindow::WidthOfFaults() const {
  const MeasuringCanvas canvas(Control(kFaults), plain_.Get());
  LONG widest = 0;
  for (const std::string& fault : panel_.Faults()) {
    const std::wstring text = ToWide(fault);
    SIZE size{};
    GetTextExtentPoint32W(canvas.Dc(), text.c_str(), static_cast<int>(text.size()), &size);
    widest = std::max(widest, size.cx);
  }
  return widest + Pixels(kBesidesEntry, dpi_) + GetSystemMetrics(SM_CXVSCROLL);
}

void RegisterWindow::Arrange() const {
  RECT client{};
  GetClientRect(Handle(), &client);
  const RegisterLayout layout = LayOutRegister(Parts(), dpi_, {client.right, client.bottom});
  const std::pair<int, Box> boxes[] = {{kRollHeading, layout.rollHeading},
                                       {kRoll, layout.roll},
                                       {kSaveRoll, layout.save},
                                       {kSwitchesHeading, layout.switchesHeading},
                                       {kFaultsHeading, layout.faultsHeading},
                                       {kFaults, layout.faults},
                                       {kNextCommand, layout.nextCommand},
                                       {kUntilOff, layout.untilOff},
                                       {kChosenFault, layout.chosen},
                                       {kSwitchOff, layout.switchOff},
                                       {kCountersHeading, layout.countersHeading},
                                       {kCounters, layout.counters},
                                       {kCopyScenario, layout.copy},
                                       {kStatus, layout.status}};
  for (const auto& [id, box] : boxes) Place(id, box);
  int id = kSwitch;
  for (const Box& box : layout.switches) Place(id++, box);
  InvalidateRect(Control(kStatus), nullptr, TRUE);  // Its text may break elsewhere now.
}

void RegisterWindow::Place(int id, const Box& box) const {
  SetWindowPos(Control(id), nullptr, box.left, box.top, box.width, box.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT RegisterWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kPanelChanged: Refresh(); return 0;
    case kPassOn: PassOn(); return 0;
    case WM_COMMAND: OnCommand(LOWORD(wParam), HIWORD(wParam)); return 0;
    case WM_CLOSE: Hide(); return 0;
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) Arrange();
      return 0;
    case WM_GETMINMAXINFO: LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam)); return 0;
    case WM_ACTIVATE: OnActivate(LOWORD(wParam), reinterpret_cast<HWND>(lParam)); return 0;
    case WM_SETFOCUS: SetFocus(IsWindowEnabled(focus_) ? focus_ : roll_->Handle()); return 0;
    case WM_NEXTDLGCTL: MoveFocus(wParam, LOWORD(lParam) != 0); return 0;
    case DM_GETDEFID: return MAKELRESULT(DefaultButton(), DC_HASDEFID);
    case WM_MOUSEWHEEL: roll_->Turn(wParam); return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: return ColourOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_DPICHANGED: OnDpi(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
    default: return Window::OnMessage(message, wParam, lParam);
  }
}

void RegisterWindow::LimitSize(MINMAXINFO& limits) const {
  if (!roll_) return;
  const Extent least = LeastSize();
  limits.ptMinTrackSize = {least.width, least.height};
}

Extent RegisterWindow::LeastSize() const {
  return OuterSize(Handle(), LayOutRegister(Parts(), dpi_, {}).form, dpi_);
}

LRESULT RegisterWindow::ColourOf(HDC dc, HWND control) const {
  const bool alarm = shownFault_ && GetDlgCtrlID(control) == kChosenFault;
  SetTextColor(dc, alarm ? kAlarmColour : kTextColour);
  SetBkColor(dc, kFormColour);
  return reinterpret_cast<LRESULT>(FormBrush());
}

void RegisterWindow::OnDpi(int dpi, const RECT& suggested) {
  SetFonts(dpi);
  SetWindowPos(Handle(), nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  Arrange();
  InvalidateRect(Handle(), nullptr, TRUE);
}

/// The focus returns to the same control when somebody returns to the window. The window lies above others
/// when it opens, so the system would choose it as the next one when a dialog closes, although nobody has
/// used it yet.
void RegisterWindow::OnActivate(UINT how, HWND other) {
  const HWND focused = GetFocus();
  if (how == WA_INACTIVE) {
    if (focused != nullptr && IsChild(Handle(), focused)) focus_ = focused;
    return;
  }
  if (how == WA_CLICKACTIVE || !IsHiddenOfThisThread(other)) entered_ = true;
  if (entered_) {
    SetFocus(Handle());
  } else {
    PostMessageW(Handle(), kPassOn, 0, 0);
  }
}

/// Gives the keyboard to the window that was used before, a waiting dialog first.
void RegisterWindow::PassOn() const {
  if (GetForegroundWindow() != Handle()) return;
  if (const HWND next = LastUsedWindow(Handle())) SetForegroundWindow(next);
}

/// Left to itself, the system might give the keyboard to the taskbar.
void RegisterWindow::Hide() const {
  PassOn();
  ShowWindow(Handle(), SW_HIDE);
}

void RegisterWindow::MoveFocus(WPARAM target, bool isControl) const {
  const HWND next =
      isControl ? reinterpret_cast<HWND>(target) : GetNextDlgTabItem(Handle(), GetFocus(), target != 0);
  if (next != nullptr) SetFocus(next);
}

/// The button that Enter presses: the focused one, and in the list the one for the next command. Zero: none.
int RegisterWindow::DefaultButton() const {
  const int focused = GetDlgCtrlID(GetFocus());
  if (focused == kFaults) return kNextCommand;
  const bool isButton = std::find(std::begin(kButtons), std::end(kButtons), focused) != std::end(kButtons);
  return isButton ? focused : 0;
}

void RegisterWindow::OnCommand(int id, UINT notification) {
  const bool clicked = notification == BN_CLICKED;
  if (id == IDCANCEL) {
    Hide();
  } else if (id == kFaults) {
    if (notification == LBN_DBLCLK) Choose(true);
  } else if (notification == BN_SETFOCUS || notification == BN_KILLFOCUS) {
    ShowDefault(id, notification == BN_SETFOCUS);
  } else if (clicked && id >= kSwitch) {
    Turn(id);
  } else if (clicked) {
    OnButton(id);
  }
}

/// Only the button that Enter presses is drawn as the default.
void RegisterWindow::ShowDefault(int id, bool isDefault) const {
  const WPARAM style = (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_NOTIFY;
  SendMessageW(Control(id), BM_SETSTYLE, style, TRUE);
}

void RegisterWindow::OnButton(int id) {
  switch (id) {
    case kSaveRoll: return Say(panel_.SaveRoll());
    case kNextCommand: return Choose(true);
    case kUntilOff: return Choose(false);
    case kSwitchOff: return SwitchFaultOff();
    case kCopyScenario: return CopyScenario();
    default: return;
  }
}

void RegisterWindow::Refresh() {
  noted_ = false;
  roll_->Update();
  ShowSwitches();
  ShowFault();
  ShowCounters();
}

void RegisterWindow::ShowSwitches() const {
  int id = kSwitch;
  for (const PanelSwitch& one : panel_.Switches()) {
    const WPARAM check = one.on ? BST_CHECKED : BST_UNCHECKED;
    const HWND control = Control(id++);
    if (static_cast<WPARAM>(SendMessageW(control, BM_GETCHECK, 0, 0)) != check)
      SendMessageW(control, BM_SETCHECK, check, 0);
  }
}

void RegisterWindow::ShowFault() {
  const auto fault = panel_.Fault();
  if (shownFault_ && shownFault_->once && !fault) Say(FaultSentence(own_text::kFaultStruck, *shownFault_));
  shownFault_ = fault;
  ChangeText(Control(kChosenFault), FaultText(panel_));
  const HWND off = Control(kSwitchOff);
  if (!fault && GetFocus() == off) SetFocus(Control(kFaults));
  if (!fault && focus_ == off) focus_ = Control(kFaults);
  EnableWindow(off, fault.has_value());
}

/// If the counters need more lines than before, the window may have become too low.
void RegisterWindow::ShowCounters() const {
  const HWND counters = Control(kCounters);
  if (!ChangeText(counters, JoinLines(panel_.Counters()))) return;
  RECT box{};
  GetClientRect(counters, &box);
  if (MeasureTextOf(counters, DT_NOPREFIX)(box.right).height == box.bottom) return;
  GetWindowRect(Handle(), &box);
  const Extent least = LeastSize();
  if (box.bottom - box.top < least.height && !IsIconic(Handle()))
    SetWindowPos(Handle(), nullptr, 0, 0, box.right - box.left, least.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Arrange();
}

void RegisterWindow::Turn(int id) {
  const auto number = static_cast<std::size_t>(id - kSwitch);
  panel_.Turn(number, SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED);
  Say(SwitchText(panel_.Switches()[number]));
}

void RegisterWindow::Choose(bool once) {
  const LRESULT selected = SendMessageW(Control(kFaults), LB_GETCURSEL, 0, 0);
  if (selected == LB_ERR) return;
  panel_.SetFault(ChosenFault{static_cast<std::size_t>(selected), once});
  Say(FaultText(panel_));
}

void RegisterWindow::SwitchFaultOff() {
  const auto fault = panel_.Fault();
  if (!fault) return;
  shownFault_.reset();  // It ends without having happened.
  panel_.SetFault(std::nullopt);
  Say(FaultSentence(own_text::kFaultEnded, *fault));
}

void RegisterWindow::CopyScenario() const {
  const bool copied = CopyToClipboard(Handle(), WithLineBreaks(panel_.Scenario()));
  Say(copied ? own_text::kScenarioCopied : own_text::kNotCopied);
}

std::string RegisterWindow::FaultSentence(const char* what, const ChosenFault& fault) const {
  return std::string(what) + " " + panel_.Faults()[fault.number];
}

void RegisterWindow::Say(const std::string& status) const { ChangeText(Control(kStatus), status); }

}  // namespace orvenza
