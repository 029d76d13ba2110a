// The main form with a shell that is not ready, or reports the icon's position.

#include "ui/windows/shell.h"

#include "platform/windows/wide.h"
#include "ui/windows/main_form.h"
#include "ui/windows/names.h"
#include "windows/form_bench.h"
#include "windows/person.h"

namespace orvenza::test {
namespace {

using Operations = std::vector<DWORD>;

struct ShellTest : FormBench {
  /// Acts as if the interval before the next attempt had passed.
  void NextTry() { SendMessageW(form.Handle(), WM_TIMER, kTmrIcon, 0); }

  bool ready = false;
  Operations operations;
  std::optional<RECT> place;
  MainForm form{"Orvenza di prova",
                {.chosen = [](MenuItem) {}, .end = [] {}, .menuClosed = [] {}},
                {.notify =
                     [this](DWORD operation, NOTIFYICONDATAA&) {
                       operations.push_back(operation);
                       return ready;
                     },
                 .placeOfIcon = [this](HWND) { return place; }}};
};

TEST_F(ShellTest, IsAskedForTheIconUntilItTakesIt) {
  form.CreateIcon("Orvenza");
  EXPECT_EQ(operations, (Operations{NIM_ADD, NIM_MODIFY}));
  NextTry();
  EXPECT_EQ(operations, (Operations{NIM_ADD, NIM_MODIFY, NIM_ADD, NIM_MODIFY}));
  operations.clear();
  Await("a try that nobody asked for", [&] { return operations.size() == 2; });
  ready = true;
  operations.clear();
  NextTry();
  EXPECT_EQ(operations, Operations{NIM_ADD});
  EXPECT_FALSE(KillTimer(form.Handle(), kTmrIcon)) << "it goes on trying";
}

TEST_F(ShellTest, IsAskedNoMoreOnceTheIconIsTakenAway) {
  form.CreateIcon("Orvenza");
  form.DeleteIcon();
  operations.clear();
  EXPECT_FALSE(KillTimer(form.Handle(), kTmrIcon));
  NextTry();
  EXPECT_TRUE(operations.empty());
}

struct MenuPlaceTest : ShellTest {
  static BOOL CALLBACK NotePlace(HWND window, LPARAM) {
    if (!IsWindowVisible(window) || ClassOf(window) != L"#32768") return TRUE;
    GetWindowRect(window, &menu);
    EndMenu();
    return FALSE;
  }
  /// An open menu blocks the pump's timers, but not the system's.
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), NotePlace, 0);
  }

  /// Where the menu opens while the pointer is at `x`, `y`.
  RECT OpenWithPointerAt(int x, int y) {
    menu = {};
    SetCursorPos(x, y);
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Look);
    PostMessageW(GetDlgItem(form.Handle(), control_id::kPicture1), kIconMessage, 1, WM_RBUTTONDOWN);
    Await("the menu", [] { return menu.right != 0; });
    KillTimer(nullptr, timer);
    return menu;
  }

  static inline RECT menu;
};

TEST_F(MenuPlaceTest, IsAtThePointerWhileThatIsOnTheIcon) {
  place = RECT{300, 200, 332, 232};
  const RECT opened = OpenWithPointerAt(325, 205);
  EXPECT_NEAR(opened.left, 325, 1);
  EXPECT_NEAR(opened.top, 205, 1);
}

TEST_F(MenuPlaceTest, IsAtTheIconWhenTheKeyboardOpensIt) {
  place = RECT{300, 200, 332, 232};
  const RECT opened = OpenWithPointerAt(20, 20);
  EXPECT_NEAR(opened.left, 316, 1);
  EXPECT_NEAR(opened.top, 216, 1);
}

TEST_F(MenuPlaceTest, IsAtThePointerWhereTheShellDoesNotTellOfTheIcon) {
  const RECT opened = OpenWithPointerAt(20, 20);
  EXPECT_NEAR(opened.left, 20, 1);
  EXPECT_NEAR(opened.top, 20, 1);
}

}  // namespace
}  // namespace orvenza::test
