// The content of the icon's menu.

#include "platform/windows/wide.h"
#include "ui/windows/names.h"
#include "windows/form_bench.h"
#include "windows/person.h"

namespace orvenza::test {
namespace {

using Entries = std::vector<std::string>;

/// The captions; "-" for a separator.
Entries EntriesOf(HMENU menu) {
  Entries entries;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t caption[64] = L"";
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STRING;
    info.dwTypeData = caption;
    info.cch = 64;
    GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info);
    entries.push_back((info.fType & MFT_SEPARATOR) != 0 ? "-" : ToUtf8(caption));
  }
  return entries;
}

BOOL CALLBACK ReadAndCloseMenu(HWND window, LPARAM entries) {
  if (!IsWindowVisible(window) || ClassOf(window) != L"#32768") return TRUE;
  const LRESULT menu = SendMessageW(window, MN_GETHMENU, 0, 0);
  *reinterpret_cast<Entries*>(entries) = EntriesOf(reinterpret_cast<HMENU>(menu));
  EndMenu();
  return FALSE;
}

struct PopupTest : FormBench {
  /// An open menu blocks the pump's timers, but not the system's.
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), ReadAndCloseMenu, reinterpret_cast<LPARAM>(&seen));
  }

  Entries OpenMenu() {
    const HWND main = FindWindowW(window_class::kOrvMain, L"Orvenza");
    seen.clear();
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Look);
    PostMessageW(GetDlgItem(main, control_id::kPicture1), kIconMessage, 1, WM_RBUTTONDOWN);
    Await("the menu", [] { return !seen.empty(); });
    KillTimer(nullptr, timer);
    return seen;
  }

  static inline Entries seen;
};

TEST_F(PopupTest, HasFourItemsAndASeparatorBetweenAnyTwo) {
  EXPECT_EQ(OpenMenu(), (Entries{"Esci", "-", "Utilita'", "-", "Info", "-", "Configura"}));
}

TEST_F(PopupTest, HasTheAddedItemBelow) {
  person.AddMenuItem("Registratore simulato", [] {});
  EXPECT_EQ(OpenMenu(),
            (Entries{"Esci", "-", "Utilita'", "-", "Info", "-", "Configura", "-", "Registratore simulato"}));
}

struct PopupPressedAgainTest : FormBench {
  static HWND Main() { return FindWindowW(window_class::kOrvMain, L"Orvenza"); }

  /// Runs while the menu is open: clicks the icon again, checks whether the menu's timer still runs, and
  /// closes the menu.
  static void CALLBACK PressAgain(HWND, UINT, UINT_PTR, DWORD) {
    if ((StateOf(Main()).flags & GUI_INMENUMODE) == 0) return;
    if (!pressedAgain) {
      pressedAgain = true;
      SendMessageW(GetDlgItem(Main(), control_id::kPicture1), kIconMessage, 1, WM_LBUTTONDOWN);
      isTimed = KillTimer(Main(), kTmrMenu) != FALSE;
    }
    EndMenu();
  }

  static inline bool pressedAgain;
  static inline bool isTimed;
};

TEST_F(PopupPressedAgainTest, StillClosesAfterItsTime) {
  pressedAgain = isTimed = false;
  const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, PressAgain);
  PostMessageW(GetDlgItem(Main(), control_id::kPicture1), kIconMessage, 1, WM_LBUTTONDOWN);
  Await("the menu", [] { return pressedAgain; });
  KillTimer(nullptr, timer);
  EXPECT_TRUE(isTimed);
}

}  // namespace
}  // namespace orvenza::test
