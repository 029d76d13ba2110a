// The simulated register's window: what it shows, and its use by mouse and keyboard.

#include <algorithm>
#include <set>

#include "platform/windows/unique_handle.h"
#include "windows/picture.h"
#include "windows/register_bench.h"

namespace orvenza::test {
namespace {

using namespace control_id;

constexpr COLORREF kVoided = RGB(176, 32, 32);
constexpr COLORREF kBlankPaper = RGB(255, 254, 246);

using Ids = std::vector<int>;

struct RegisterWindowTest : RegisterBench {
  /// The buttons drawn as the one that Enter presses.
  Ids DefaultButtons() const {
    Ids found;
    for (const int id : {kSaveRoll, kNextCommand, kUntilOff, kSwitchOff, kCopyScenario}) {
      if ((GetWindowLongW(Control(id), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON) found.push_back(id);
    }
    return found;
  }
};

TEST_F(RegisterWindowTest, ShowsWhatThePanelHas) {
  for (int i = 1; i <= 4; ++i) panel.Print(Receipt(i, i == 3));
  panel.fault = {2, false};
  panel.switches[3].on = false;
  panel.Changed();
  Settle();
  EXPECT_TRUE(
      InView().ends_with("RESTO                               2,30\r\n"
                         "22/11/2026 09:00          SCONTRINO N. 4\r\n"
                         "----------------------------------------\r\n"))
      << InView();
  EXPECT_EQ(Text(kCounters), "Totale del giorno: 12,50\r\nScontrini: 3");
  EXPECT_EQ(Text(kChosenFault), "Attivo: Errore 02: Carta Scontrino, a ogni comando");
  EXPECT_EQ(Text(kSwitch), "C&arta scontrino");
  EXPECT_TRUE(IsChecked(kSwitch));
  EXPECT_FALSE(IsChecked(kSwitch + 3));
  EXPECT_EQ(SendMessageW(Control(kFaults), LB_GETCOUNT, 0, 0), 3);
  TakePicture(window.Handle());
}

TEST_F(RegisterWindowTest, FollowsThePanel) {
  panel.switches[1].on = false;
  panel.counters.push_back("Chiusure fiscali: 1");
  panel.Print({{"PANE                                1,50"}});
  Settle();
  EXPECT_FALSE(IsChecked(kSwitch + 1));
  EXPECT_EQ(Text(kCounters), "Totale del giorno: 12,50\r\nScontrini: 3\r\nChiusure fiscali: 1");
  EXPECT_EQ(InView(), "PANE                                1,50\r\n");
  EXPECT_TRUE(ShowsAllControls(window.Handle(), ScreenDpi()));
  panel.switches[1].on = true;
  panel.Changed();
  Settle();
  EXPECT_TRUE(IsChecked(kSwitch + 1));
}

/// Colours of a line in view.
std::set<COLORREF> ColoursOfLine(HWND roll, int line, int height) {
  RedrawWindow(roll, nullptr, nullptr, RDW_UPDATENOW);
  std::set<COLORREF> colours;
  const HDC dc = GetDC(roll);
  const int top = Pixels(60, ScreenDpi()) + line * height;
  for (int y = top; y < top + height; ++y) {
    for (int x = 4; x < 200; ++x) colours.insert(GetPixel(dc, x, y));
  }
  ReleaseDC(roll, dc);
  return colours;
}

TEST_F(RegisterWindowTest, MarksVoidedLines) {
  panel.Print({{"RESTO"}, {"RESTO", true}});
  Settle();
  const int height = MulDiv(15, ScreenDpi(), 96);
  const auto plain = ColoursOfLine(Control(kRoll), 0, height - 3);
  const auto voided = ColoursOfLine(Control(kRoll), 1, height);
  EXPECT_TRUE(plain.contains(kBlankPaper));
  EXPECT_FALSE(plain.contains(kVoided));
  EXPECT_TRUE(voided.contains(kVoided));
}

TEST_F(RegisterWindowTest, ErasesNothingBelowTheRoll) {
  EXPECT_EQ(SendMessageW(Control(kRoll), WM_ERASEBKGND, 0, 0), 1);
  EXPECT_NE(GetWindowLongW(window.Handle(), GWL_STYLE) & WS_CLIPCHILDREN, 0);
}

TEST_F(RegisterWindowTest, TabLeadsThroughItAndBack) {
  panel.fault = {0, false};
  panel.Changed();
  Enter();
  const int order[] = {kRoll,       kSaveRoll, kSwitch,      kSwitch + 1, kSwitch + 2, kSwitch + 3,
                       kSwitch + 4, kFaults,   kNextCommand, kUntilOff,   kSwitchOff,  kCopyScenario};
  for (const int id : order) {
    AwaitFocus(id);
    EXPECT_EQ(DefaultButtons(), id == kRoll || id == kFaults || id >= kSwitch ? Ids{} : Ids{id});
    Press(VK_TAB);
  }
  AwaitFocus(kRoll);
  for (auto id = std::rbegin(order); id != std::rend(order); ++id) {
    PressWith(VK_SHIFT, VK_TAB);
    AwaitFocus(*id);
  }
}

TEST_F(RegisterWindowTest, DrawsTheButtonThatEnterPressesAsTheDefault) {
  Enter();
  Click(window.Handle(), kNextCommand);
  AwaitFocus(kNextCommand);
  EXPECT_EQ(DefaultButtons(), Ids{kNextCommand});
  Click(window.Handle(), kSaveRoll);
  AwaitFocus(kSaveRoll);
  EXPECT_EQ(DefaultButtons(), Ids{kSaveRoll});
  Click(window.Handle(), kRoll);
  AwaitFocus(kRoll);
  EXPECT_EQ(DefaultButtons(), Ids{});
}

TEST_F(RegisterWindowTest, HasADifferentLetterForEachCaption) {
  std::set<wchar_t> letters;
  int captions = 0;
  for (HWND control = GetWindow(window.Handle(), GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    const std::string text = GetDlgCtrlID(control) == kRoll ? "" : TextOf(control);
    const auto mark = text.find('&');
    if (mark == std::string::npos) continue;
    ++captions;
    EXPECT_TRUE(letters.insert(static_cast<wchar_t>(std::tolower(text[mark + 1]))).second) << text;
  }
  EXPECT_EQ(captions, 12);
}

TEST_F(RegisterWindowTest, TurnsASwitchByMouse) {
  Enter();
  Click(window.Handle(), kSwitch + 3);
  AwaitText(kStatus, "Cavo: ASSENTE");
  EXPECT_FALSE(panel.switches[3].on);
  Click(window.Handle(), kSwitch + 3);
  AwaitText(kStatus, "Cavo: presente");
  EXPECT_TRUE(panel.switches[3].on);
}

TEST_F(RegisterWindowTest, TurnsASwitchByKeyboard) {
  Enter();
  PressWithAlt('V');
  AwaitText(kStatus, "Cavo: ASSENTE");
  EXPECT_FALSE(panel.switches[3].on);
  TabTo(kSwitch + 4);
  Press(VK_SPACE);
  AwaitText(kStatus, "Chiave: ASSENTE");
  EXPECT_FALSE(panel.switches[4].on);
}

TEST_F(RegisterWindowTest, ChoosesAFaultByMouse) {
  Enter();
  const RECT list = PlaceOf(window.Handle(), kFaults);
  POINT second{list.left + 20, list.top + (list.bottom - list.top) / 2};
  ClientToScreen(window.Handle(), &second);
  ClickAt(second.x, second.y);
  Await("the second fault", [this] { return SendMessageW(Control(kFaults), LB_GETCURSEL, 0, 0) == 1; });
  EXPECT_FALSE(panel.fault);
  Click(window.Handle(), kNextCommand);
  AwaitText(kStatus, "Attivo: Risposta persa, al prossimo comando");
  ASSERT_TRUE(panel.fault);
  EXPECT_EQ(panel.fault->number, 1U);
  EXPECT_TRUE(panel.fault->once);
  Click(window.Handle(), kUntilOff);
  AwaitText(kStatus, "Attivo: Risposta persa, a ogni comando");
  EXPECT_FALSE(panel.fault->once);
  TakePicture(window.Handle());
  Click(window.Handle(), kSwitchOff);
  AwaitText(kStatus, "Disattivato: Risposta persa");
  EXPECT_FALSE(panel.fault);
  EXPECT_EQ(Text(kChosenFault), "Nessun guasto attivo");
  ClickAt(second.x, second.y);
  ClickAt(second.x, second.y);
  AwaitText(kStatus, "Attivo: Risposta persa, al prossimo comando");
  Click(window.Handle(), kSwitchOff);
  AwaitText(kStatus, "Disattivato: Risposta persa");
  Settle();
  EXPECT_EQ(Text(kStatus), "Disattivato: Risposta persa") << "it has not happened";
}

TEST_F(RegisterWindowTest, ChoosesAFaultByKeyboard) {
  Enter();
  PressWithAlt('G');
  AwaitFocus(kFaults);
  Press(VK_DOWN);
  Press(VK_DOWN);
  Press(VK_RETURN);
  AwaitText(kStatus, "Attivo: Errore 02: Carta Scontrino, al prossimo comando");
  PressWithAlt('F');
  AwaitText(kStatus, "Attivo: Errore 02: Carta Scontrino, a ogni comando");
  TabTo(kSwitchOff);
  Press(VK_RETURN);
  AwaitText(kStatus, "Disattivato: Errore 02: Carta Scontrino");
  AwaitFocus(kFaults);  // The button is disabled now.
  EXPECT_FALSE(IsWindowEnabled(Control(kSwitchOff)));
}

TEST_F(RegisterWindowTest, SaysThatAFaultHasHappened) {
  panel.SetFault(ChosenFault{1, true});
  Settle();
  EXPECT_TRUE(IsWindowEnabled(Control(kSwitchOff)));
  panel.SetFault(std::nullopt);
  Settle();
  EXPECT_EQ(Text(kStatus), "Guasto avvenuto: Risposta persa");
  EXPECT_EQ(Text(kChosenFault), "Nessun guasto attivo");
}

TEST_F(RegisterWindowTest, SavesTheRoll) {
  Enter();
  PressWithAlt('S');
  AwaitText(kStatus, "Rotolo salvato : rotolo.txt");
  EXPECT_EQ(panel.saved, 1);
  panel.saveResult = "Rotolo non salvato : Path/File access error";
  Click(window.Handle(), kSaveRoll);
  AwaitText(kStatus, panel.saveResult);
  EXPECT_TRUE(ShowsAllControls(window.Handle(), ScreenDpi()));
}

TEST_F(RegisterWindowTest, CopiesTheScenario) {
  Enter();
  panel.scenario = "register\nat 2s \xC3\xA8\r\nnext silence\n";
  Click(window.Handle(), kCopyScenario);
  AwaitText(kStatus, "Scenario copiato negli appunti.");
  EXPECT_EQ(ClipboardText(), "register\r\nat 2s \xC3\xA8\r\nnext silence\r\n");
  panel.scenario = "register\n";
  PressWithAlt('C');
  Await("the copy", [] { return ClipboardText() == "register\r\n"; });
}

/// The clipboard in the hands of another thread.
class HeldClipboard {
 public:
  HeldClipboard() { WaitForSingleObject(held_.Get(), INFINITE); }
  ~HeldClipboard() {
    SetEvent(free_.Get());
    WaitForSingleObject(thread_.Get(), INFINITE);
  }
  HeldClipboard(const HeldClipboard&) = delete;
  HeldClipboard& operator=(const HeldClipboard&) = delete;

 private:
  static DWORD WINAPI Hold(void* parameter) {
    auto& self = *static_cast<HeldClipboard*>(parameter);
    OpenClipboard(nullptr);
    SetEvent(self.held_.Get());
    WaitForSingleObject(self.free_.Get(), INFINITE);
    CloseClipboard();
    return 0;
  }

  ObjectHandle held_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  ObjectHandle free_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  ObjectHandle thread_{CreateThread(nullptr, 0, Hold, this, 0, nullptr)};
};

TEST_F(RegisterWindowTest, SaysThatTheClipboardIsInUse) {
  {
    const HeldClipboard held;
    SendMessageW(Control(kCopyScenario), BM_CLICK, 0, 0);
    EXPECT_EQ(Text(kStatus), "Gli appunti sono occupati da un altro programma. Riprovare.");
  }
  SendMessageW(Control(kCopyScenario), BM_CLICK, 0, 0);
  EXPECT_EQ(Text(kStatus), "Scenario copiato negli appunti.");
}

TEST_F(RegisterWindowTest, FitsTheScreenAndShowsEverythingAtEveryResolution) {
  panel.fault = {2, false};
  panel.Changed();
  for (int i = 1; i <= 9; ++i) panel.Print(Receipt(i));
  Settle();
  EXPECT_TRUE(ShowsEverything(window.Handle(), ScreenDpi()));
  for (const int dpi : {96, 120, 144, 192}) {
    if (dpi < ScreenDpi()) continue;  // Title bars do not shrink.
    ChangeDpi(window.Handle(), dpi);
    EXPECT_TRUE(ShowsAllControls(window.Handle(), dpi)) << dpi;
    const std::string inView = InView();
    EXPECT_TRUE(inView.ends_with(std::string(40, '-') + "\r\n")) << dpi;
    EXPECT_GE(std::count(inView.begin(), inView.end(), '\n'), 10) << dpi;
  }
}

TEST_F(RegisterWindowTest, GivesTheRollTheSpace) {
  RECT place{};
  GetWindowRect(window.Handle(), &place);
  const RECT before = PlaceOf(window.Handle(), kRoll);
  SetWindowPos(window.Handle(), nullptr, 0, 0, place.right - place.left + 100, place.bottom - place.top + 50,
               SWP_NOZORDER);
  const RECT after = PlaceOf(window.Handle(), kRoll);
  EXPECT_EQ(after.right - after.left, before.right - before.left + 100);
  EXPECT_EQ(after.bottom - after.top, before.bottom - before.top + 50);
  SetWindowPos(window.Handle(), nullptr, 0, 0, 100, 100, SWP_NOZORDER);
  EXPECT_TRUE(ShowsAllControls(window.Handle(), ScreenDpi())) << "there is a least size";
}

}  // namespace
}  // namespace orvenza::test
