// The simulated register's window in the finished program: faults that happen, dialogs in front of it, the
// menu that brings it back.

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/windows/windows_event_pump.h"
#include "ui/windows/names.h"
#include "windows/control.h"
#include "windows/person.h"
#include "windows/picture.h"
#include "windows/register_bench.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

using namespace control_id;

constexpr int kConfigure = 4;
constexpr int kRegister = 5;
constexpr const char* kTicket = "1;Caffe' espresso;2,000;120;1;;;1;;\r\n2;1;500;\r\n";

/// The host's program in front: a window of this process.
class HostWindow {
 public:
  explicit HostWindow(const Till& till)
      : till_(till),
        window_(CreateWindowExW(0, L"STATIC", L"Vendite", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                                nullptr, nullptr, nullptr, nullptr)) {
    Activate();
  }
  ~HostWindow() { DestroyWindow(window_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  void Activate() {
    SetForegroundWindow(window_);
    AwaitInFront();
  }
  bool IsInFront() {
    pump_.Dispatch();
    return GetForegroundWindow() == window_;
  }
  void AwaitInFront() {
    till_.Await("the host's program in front", [this] { return IsInFront(); });
  }

 private:
  const Till& till_;
  WindowsEventPump pump_;
  HWND window_;
};

struct RegisterProgramTest : testing::Test {
  explicit RegisterProgramTest(const std::string& script = {}) : shop(script) {}

  HWND Register() const {
    till.Await("the register's window",
               [this] { return till.FormNow(window_class::kOrvRegister) != nullptr; });
    return till.FormNow(window_class::kOrvRegister);
  }
  std::string Roll() const { return WholeText(GetDlgItem(Register(), kRoll)); }
  void AwaitText(int id, const std::string& text) const {
    till.Await(text.c_str(), [&] { return TextOf(Register(), id).find(text) != std::string::npos; });
  }
  void AwaitPrinted(const std::string& text) const {
    till.Await(text.c_str(), [&] { return Roll().find(text) != std::string::npos; });
  }
  void AwaitInFront(HWND window) const {
    till.Await("the window in front", [=] { return IsReady(window); });
  }
  /// Whether `front` lies above the register's window.
  bool LiesAbove(HWND front) const {
    HWND window = Register();
    do window = GetWindow(window, GW_HWNDPREV);
    while (window != nullptr && window != front);
    return window == front;
  }

  const Shop shop;
  const Till till{shop};
};

/// Whether the left part of the control shows a pixel of this colour.
bool Shows(HWND control, COLORREF colour) {
  RECT place{};
  GetWindowRect(control, &place);
  const HDC screen = GetDC(nullptr);
  bool found = false;
  for (LONG y = place.top; y < place.bottom && !found; ++y) {
    for (LONG x = place.left; x < place.left + 40 && !found; ++x) found = GetPixel(screen, x, y) == colour;
  }
  ReleaseDC(nullptr, screen);
  return found;
}

TEST_F(RegisterProgramTest, OpensAndPrintsWithoutTakingTheKeyboard) {
  HostWindow host(till);
  till.AwaitStart();
  shop.Drop("0001.txt", kTicket);
  till.AwaitArchived("1.txt", kTicket);
  AwaitPrinted("Caffe' espresso                     2,40\r\n");
  AwaitText(kCounters, "Totale del giorno: 2,40\r\nScontrini: 1\r\n");
  EXPECT_TRUE(host.IsInFront());
  EXPECT_EQ(GetWindowLongW(Register(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  EXPECT_TRUE(IsWindowEnabled(Register()));
  EXPECT_EQ(till.Visible(), std::vector<std::wstring>{window_class::kOrvRegister});
  TakePicture(Register());
}

TEST_F(RegisterProgramTest, LetsAFaultHappenUntilItIsSwitchedOff) {
  till.AwaitStart();
  Click(Register(), kRoll);
  AwaitInFront(Register());
  PressWithAlt('G');
  for (int i = 0; i < 3; ++i) Press(VK_DOWN);
  PressWithAlt('F');
  AwaitText(kStatus, "Attivo: Errore di linea 1, a ogni comando");
  shop.Drop("0001.txt", kTicket);
  const HWND first = till.Form(window_class::kOrvInfo);
  EXPECT_TRUE(LiesAbove(first));
  TakePicture({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}, L"Screen");
  Press(VK_RETURN);  // prints again
  till.Gone(first);
  const HWND second = till.Form(window_class::kOrvInfo);
  Click(Register(), kSwitchOff);
  AwaitText(kStatus, "Disattivato: Errore di linea 1");
  EXPECT_TRUE(IsWindowEnabled(second));
  EXPECT_TRUE(LiesAbove(second));
  Click(second, kCommand + 1);
  till.Gone(second);
  till.AwaitArchived("1.txt", kTicket);
  AwaitPrinted("SCONTRINO N. 1\r\n");
}

TEST_F(RegisterProgramTest, TakesThePaperAndGivesItBackWhileTheDialogWaits) {
  till.AwaitStart();
  Click(Register(), kSwitch);
  AwaitText(kStatus, "Carta scontrino: ASSENTE");
  shop.Drop("0001.txt", kTicket);
  const HWND paper = till.Form(window_class::kOrvInfo);
  EXPECT_TRUE(IsWindowEnabled(Register()));
  Click(Register(), kSwitch);
  AwaitText(kStatus, "Carta scontrino: presente");
  AwaitText(kCounters, "Carta scontrino: la cassa attende il riavvio");
  EXPECT_TRUE(LiesAbove(paper));
  Click(paper, kCommand + 1);
  till.Gone(paper);
  till.AwaitArchived("1.txt", kTicket);
  AwaitPrinted("SCONTRINO N. 1\r\n");
}

struct RegisterProgramVoidTest : RegisterProgramTest {
  RegisterProgramVoidTest() : RegisterProgramTest("on 1036 reply ERR08\n") {}
};

TEST_F(RegisterProgramVoidTest, MarksTheSlipThatIsPrintedAgain) {
  constexpr COLORREF kVoided = RGB(176, 32, 32);
  till.AwaitStart();
  EXPECT_FALSE(Shows(GetDlgItem(Register(), kRoll), kVoided));
  shop.Drop("0001.txt", kTicket);
  till.Form(window_class::kOrvInfo);
  Press(VK_RETURN);  // prints again
  till.AwaitArchived("1.txt", kTicket);
  AwaitPrinted("SCONTRINO N. 1\r\n");
  Click(Register(), kNextCommand);
  AwaitText(kStatus, "Attivo: Nessuna risposta, al prossimo comando");
  PressWithAlt('R');
  till.Await("the voided slip", [&] { return Shows(GetDlgItem(Register(), kRoll), kVoided); });
  TakePicture(Register());
}

TEST_F(RegisterProgramTest, ReturnsTheKeyboardToTheDialogWhenItIsHidden) {
  till.AwaitStart();
  till.Menu(kConfigure);
  const HWND conf = till.Form(window_class::kOrvConf);
  Click(Register(), kFaults);
  AwaitInFront(Register());
  EXPECT_TRUE(LiesAbove(conf));
  Press(VK_ESCAPE);
  AwaitInFront(conf);
  EXPECT_EQ(till.FormNow(window_class::kOrvRegister), nullptr);
  till.Menu(kRegister);
  Register();
  AwaitInFront(conf);
  EXPECT_TRUE(LiesAbove(conf));
  Press(VK_ESCAPE);
  till.Gone(conf);
}

TEST_F(RegisterProgramTest, LeavesTheKeyboardToTheHostWhenADialogCloses) {
  till.AwaitStart();
  HostWindow host(till);
  // As if it had opened later than the host's program.
  SetWindowPos(Register(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  till.Menu(kConfigure);
  const HWND conf = till.Form(window_class::kOrvConf);
  Press(VK_ESCAPE);
  till.Gone(conf);
  host.AwaitInFront();
  till.TellIcon(WM_RBUTTONDOWN);
  till.AwaitMenu();
  Press(VK_ESCAPE);
  till.AwaitNoMenu();
  host.AwaitInFront();
}

TEST_F(RegisterProgramTest, HasTheKeyboardBackWhenADialogClosesThatCameWhileItWasUsed) {
  till.AwaitStart();
  Click(Register(), kRoll);
  AwaitInFront(Register());
  till.Menu(kConfigure);
  const HWND conf = till.Form(window_class::kOrvConf);
  Press(VK_ESCAPE);
  till.Gone(conf);
  AwaitInFront(Register());
  EXPECT_EQ(FocusedId(Register()), kRoll);
}

TEST_F(RegisterProgramTest, IsHiddenAndComesBackByTheMenu) {
  till.AwaitStart();
  const HWND window = Register();
  HostWindow host(till);
  for (const auto& hide :
       {CloseByCross, +[](HWND form) { ShowWindow(form, SW_MINIMIZE); },
        +[](HWND form) { SetWindowPos(form, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); }}) {
    host.Activate();
    hide(window);
    till.Menu(kRegister);
    AwaitInFront(window);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_FALSE(IsIconic(window));
  }
  Press(VK_ESCAPE);
  till.Await("the window to hide", [&] { return !IsWindowVisible(window); });
  shop.Drop("0001.txt", kTicket);
  till.AwaitArchived("1.txt", kTicket);
  till.Menu(kRegister);
  AwaitInFront(window);
  AwaitPrinted("SCONTRINO N. 1\r\n");
}

TEST_F(RegisterProgramTest, SavesTheRollAndCopiesTheScenario) {
  till.AwaitStart();
  shop.Drop("0001.txt", kTicket);
  till.AwaitArchived("1.txt", kTicket);
  AwaitPrinted("SCONTRINO N. 1\r\n");
  Click(Register(), kSaveRoll);
  AwaitText(kStatus, "Rotolo salvato : rotolo-");
  const std::string status = TextOf(Register(), kStatus);
  const std::string saved = shop.folder.Read(status.substr(status.rfind("rotolo-")));
  EXPECT_NE(saved.find("Caffe' espresso                     2,40\r\n"), std::string::npos) << saved;
  Click(Register(), kSwitch + 3);
  AwaitText(kStatus, "Cavo: ASSENTE");
  PressWithAlt('C');
  AwaitText(kStatus, "Scenario copiato negli appunti.");
  const std::string scenario = ClipboardText();
  EXPECT_NE(scenario.find(" cable out\r\n"), std::string::npos) << scenario;
}

TEST_F(RegisterProgramTest, EndsWithTheProgram) {
  till.AwaitStart();
  AwaitInFront((Click(Register(), kRoll), Register()));
  shop.Quit();
  till.ExpectEnd();
}

TEST(RegisterWindow, IsMissingWithoutASimulatedRegister) {
  const Shop shop;
  const Control control(shop.folder);
  const Till till(shop, Till::Link::kControl);
  till.AwaitStart();
  EXPECT_TRUE(till.Visible().empty());
  EXPECT_EQ(FindWindowW(window_class::kOrvRegister, nullptr), nullptr);
}

}  // namespace
}  // namespace orvenza::test
