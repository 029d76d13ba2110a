#include "windows/form_bench.h"

#include <chrono>
#include <stdexcept>
#include <string>

#include "platform/windows/wide.h"
#include "ui/windows/gdi_objects.h"
#include "ui/windows/names.h"
#include "windows/person.h"
#include "windows/picture.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 30s;
constexpr auto kGlance = 2ms;

/// Width of what a control draws around its text, in form units: the mark of an option, the edges of a
/// button, the ends of a frame's caption.
int BesidesText(HWND control) {
  switch (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_AUTOCHECKBOX:
    case BS_AUTORADIOBUTTON: return 270;
    case BS_GROUPBOX: return 240;
    default: return 120;
  }
}

SIZE SizeOfText(HWND control, const std::string& text, int width, UINT format) {
  const MeasuringCanvas canvas(control, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  RECT box{0, 0, width, 0};
  DrawTextW(canvas.Dc(), ToWide(text).c_str(), -1, &box, DT_CALCRECT | format);
  return {box.right, box.bottom};
}

bool ShowsAllOfCombo(HWND combo) {
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  GetComboBoxInfo(combo, &info);
  const auto count = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    wchar_t entry[100];
    SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(entry));
    const SIZE text = SizeOfText(combo, ToUtf8(entry), 0, DT_SINGLELINE);
    if (text.cx > info.rcItem.right - info.rcItem.left || text.cy > info.rcItem.bottom - info.rcItem.top)
      return false;
  }
  return true;
}

bool ShowsAllOfEdit(HWND edit, const RECT& client) {
  const auto lines = static_cast<int>(SendMessageW(edit, EM_GETLINECOUNT, 0, 0));
  return SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0) == 0 &&
         lines * SizeOfText(edit, "X", 0, DT_SINGLELINE).cy <= client.bottom;
}

bool ShowsAllOfText(HWND control, const std::wstring& kind, const RECT& client, int dpi) {
  const LONG style = GetWindowLongW(control, GWL_STYLE);
  const bool label = kind == L"Static";
  UINT format = label ? DT_NOPREFIX : 0;
  const bool oneLine = label ? (style & SS_CENTERIMAGE) != 0 : (style & BS_MULTILINE) == 0;
  format |= oneLine ? DT_SINGLELINE : DT_WORDBREAK | DT_EDITCONTROL;
  const int room = client.right - (label ? 0 : Pixels(BesidesText(control), dpi));
  const SIZE text = SizeOfText(control, TextOf(control), room, format);
  return text.cx <= room && text.cy <= client.bottom;
}

bool ShowsAllOf(HWND control, int dpi) {
  RECT client{};
  GetClientRect(control, &client);
  const std::wstring kind = ClassOf(control);
  if (kind == L"ComboBox") return ShowsAllOfCombo(control);
  if (kind == L"Edit") return ShowsAllOfEdit(control, client);
  if (kind == L"ListBox" || kind == window_class::kOrvRoll) return true;  // They scroll.
  return TextOf(control).empty() || ShowsAllOfText(control, kind, client, dpi);
}

/// How far a control may lie above its form: the height of a centred message's empty first line.
int MayLieAbove(HWND control) {
  const bool centred = ClassOf(control) == L"Edit" && (GetWindowLongW(control, GWL_STYLE) & ES_CENTER) != 0;
  return centred && TextOf(control).starts_with("\r\n") ? SizeOfText(control, "X", 0, DT_SINGLELINE).cy : 0;
}

testing::AssertionResult Lacks(HWND control, const char* what) {
  return testing::AssertionFailure() << ToUtf8(ClassOf(control)) << " \"" << TextOf(control) << "\" " << what;
}

}  // namespace

void FormBench::WhenShown(std::function<void(HWND)> answer) {
  answer_ = std::move(answer);
  end_ = std::chrono::steady_clock::now() + kPatience;
  pump.After(kGlance, [this, number = ++asked_] { Look(number); });
}

void FormBench::Look(int number) {
  const HWND form = GetActiveWindow();
  if (IsReady(form)) {
    TakePicture(form);
    answer_(form);
    ExpectGone(number);
  } else if (std::chrono::steady_clock::now() > end_) {
    throw std::runtime_error("no form has the focus");
  } else {
    pump.After(kGlance, [=, this] { Look(number); });
  }
}

void FormBench::Await(const char* what, const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end)
      throw std::runtime_error(std::string("waited in vain for ") + what);
    pump.WaitForEvent(kGlance);
  }
}

/// Another form is expected only once this one is closed.
void FormBench::ExpectGone(int number) {
  if (number != asked_) return;
  if (std::chrono::steady_clock::now() > end_) throw std::runtime_error("the form was not answered");
  pump.After(kGlance, [=, this] { ExpectGone(number); });
}

void DialogBench::ShowMessage(const std::string& text, const std::function<void(HWND)>& answer) {
  WhenShown(answer);
  messages.ShowOperatorMessage(text, {MessageIcon::kQuestion}, "");
}

void DialogBench::ShowAll(const std::function<void(HWND)>& answer) {
  WhenShown(answer);
  person.ShowChoice(kPaper);
  WhenShown(answer);
  person.ShowChoice(kChoice);
  WhenShown(answer);
  person.ShowPortSettings(kPorts);
  WhenShown(answer);
  person.ShowUtilities(kUtilities, [](int) { return true; });
}

void ChangeDpi(HWND form, int dpi) {
  RECT suggested{0, 0, 100, 100};
  SendMessageW(form, WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
               reinterpret_cast<LPARAM>(&suggested));
}

testing::AssertionResult ShowsEverything(HWND form, int dpi) {
  RECT place{};
  GetWindowRect(form, &place);
  if (place.left < 0 || place.top < 0 || place.right > GetSystemMetrics(SM_CXSCREEN) ||
      place.bottom > GetSystemMetrics(SM_CYSCREEN))
    return Lacks(form, "does not fit the screen")
           << ": " << place.left << "," << place.top << " to " << place.right << "," << place.bottom;
  return ShowsAllControls(form, dpi);
}

testing::AssertionResult ShowsAllControls(HWND form, int dpi) {
  RECT client{};
  GetClientRect(form, &client);
  for (HWND control = GetWindow(form, GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    const RECT box = PlaceOf(form, GetDlgCtrlID(control));
    if (box.left < 0 || box.top < -MayLieAbove(control) || box.right > client.right ||
        box.bottom > client.bottom)
      return Lacks(control, "does not fit the form");
    if (!ShowsAllOf(control, dpi)) return Lacks(control, "is cut");
  }
  return testing::AssertionSuccess();
}

}  // namespace orvenza::test
