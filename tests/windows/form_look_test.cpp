// The look of the forms: colours, fonts, icons, the flashing title bar; and the result of the choice dialog.

#include <windows.h>
// Requires <windows.h>.
#include <commctrl.h>

#include <optional>
#include <vector>

#include "platform/windows/wide.h"
#include "ui/windows/dpi.h"
#include "ui/windows/names.h"
#include "ui/windows/window.h"
#include "windows/form_bench.h"
#include "windows/person.h"

namespace orvenza::test {
namespace {

using namespace control_id;

constexpr COLORREF kBackground = RGB(150, 187, 213);

struct FormLookTest : DialogBench {
  /// Shows every form, messages included.
  void ShowEveryForm(const std::function<void(HWND)>& answer) {
    ShowMessage("Sei sicuro ?", answer);
    ShowAll(answer);
  }
};

std::string NameOf(HWND form) { return ToUtf8(ClassOf(form)); }

/// The colour of this pixel of the window.
COLORREF ColourAt(HWND window, LONG x, LONG y) {
  RedrawWindow(GetAncestor(window, GA_ROOT), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  const HDC dc = GetDC(window);
  const COLORREF colour = GetPixel(dc, x, y);
  ReleaseDC(window, dc);
  return colour;
}

COLORREF ColourAt(HWND form, int control, LONG x, LONG y) {
  return ColourAt(GetDlgItem(form, control), x, y);
}

TEST_F(FormLookTest, EveryFormHasTheBackground) {
  ShowEveryForm([](HWND form) {
    RECT client{};
    GetClientRect(form, &client);
    EXPECT_EQ(ColourAt(form, 1, 1), kBackground) << NameOf(form);
    EXPECT_EQ(ColourAt(form, client.right - 2, client.bottom - 2), kBackground) << NameOf(form);
    CloseByCross(form);
  });
}

TEST_F(FormLookTest, TheTextOfAMessageHasTheBackground) {
  ShowMessage("Sei sicuro ?", [](HWND form) {
    EXPECT_EQ(ColourAt(form, kText1, 2, 2), kBackground);
    CloseByCross(form);
  });
}

TEST_F(FormLookTest, TextsAndFrameOfAChoiceHaveTheBackground) {
  WhenShown([](HWND form) {
    const RECT frame = PlaceOf(form, kFrame1);
    EXPECT_EQ(ColourAt(form, kLabel1, 1, 1), kBackground);
    EXPECT_EQ(ColourAt(form, kLabel2, 1, 1), kBackground);
    EXPECT_EQ(ColourAt(form, frame.left + 4, frame.bottom - 4), kBackground);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(ColourAt(form, kOption1 + i, 1, 1), kBackground) << i;
    CloseByCross(form);
  });
  person.ShowChoice(kChoice);
}

TEST_F(FormLookTest, LabelsAndFrameOfThePortSettingsHaveTheBackground) {
  WhenShown([](HWND form) {
    const RECT frame = PlaceOf(form, kFrame1);
    EXPECT_EQ(ColourAt(form, frame.left + 4, frame.bottom - 4), kBackground);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(ColourAt(form, kLabel + i, 1, 1), kBackground) << i;
    CloseByCross(form);
  });
  person.ShowPortSettings(kPorts);
}

std::wstring FontOf(HWND form, int control) {
  LOGFONTW font{};
  const auto handle = reinterpret_cast<HFONT>(SendDlgItemMessageW(form, control, WM_GETFONT, 0, 0));
  GetObjectW(handle, sizeof font, &font);
  return font.lfFaceName;
}

TEST_F(FormLookTest, BothLabelsOfAChoiceAreInTimesNewRoman) {
  WhenShown([](HWND form) {
    EXPECT_EQ(FontOf(form, kLabel1), L"Times New Roman");
    EXPECT_EQ(FontOf(form, kLabel2), L"Times New Roman");
    CloseByCross(form);
  });
  person.ShowChoice(kChoice);
}

HICON IconOf(HWND form, int which) { return reinterpret_cast<HICON>(GetClassLongPtrW(form, which)); }

TEST_F(FormLookTest, EveryFormHasTheIconOfTheProgram) {
  ShowEveryForm([](HWND form) {
    EXPECT_EQ(IconOf(form, GCLP_HICON), ProgramIcon(GetSystemMetrics(SM_CXICON))) << NameOf(form);
    EXPECT_EQ(IconOf(form, GCLP_HICONSM), ProgramIcon(GetSystemMetrics(SM_CXSMICON))) << NameOf(form);
    CloseByCross(form);
  });
}

TEST_F(FormLookTest, TheSmallIconOfAFormFollowsItsScreen) {
  EXPECT_EQ(SmallIconSize(192), 2 * SmallIconSize(96));
  ShowEveryForm([](HWND form) {
    const auto smallIcon = [form] {
      return reinterpret_cast<HICON>(SendMessageW(form, WM_GETICON, ICON_SMALL, 0));
    };
    EXPECT_EQ(smallIcon(), ProgramIcon(SmallIconSize(ScreenDpi()))) << NameOf(form);
    ChangeDpi(form, 192);
    EXPECT_EQ(smallIcon(), ProgramIcon(SmallIconSize(192))) << NameOf(form);
    CloseByCross(form);
  });
}

/// The buttons drawn as the default button.
std::vector<int> DefaultButtons(HWND form) {
  std::vector<int> found;
  for (HWND control = GetWindow(form, GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    const bool isDefault = (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    if (ClassOf(control) == L"Button" && isDefault) found.push_back(GetDlgCtrlID(control));
  }
  return found;
}

TEST_F(FormLookTest, TheFirstButtonLooksLikeTheOneThatEnterPressesFromTheFirstMoment) {
  ShowEveryForm([](HWND form) {
    const int first = ClassOf(form) == window_class::kOrvMsg ? kCommand0 + 1 : kCommand + 1;
    EXPECT_EQ(DefaultButtons(form), std::vector{first}) << NameOf(form);
    CloseByCross(form);
  });
}

TEST_F(FormLookTest, TheButtonWithTheFocusLooksLikeTheOneThatEnterPresses) {
  WhenShown([this](HWND form) {
    Press(VK_TAB);
    Await("the second button", [&] { return DefaultButtons(form) == std::vector{kCommand0 + 2}; });
    CloseByCross(form);
  });
  messages.ShowOperatorMessage("Sei sicuro ?", {MessageIcon::kNone, MessageButtons::kYesNo}, "");
  WhenShown([](HWND form) {
    SetFocus(GetDlgItem(form, kCommand + 1));
    SetFocus(GetDlgItem(form, kCombo + 1));
    EXPECT_EQ(DefaultButtons(form), std::vector{kCommand + 1});
    CloseByCross(form);
  });
  person.ShowPortSettings(kPorts);
}

/// Closes this thread's menu and records that there was one.
void CALLBACK CloseMenu(HWND, UINT, UINT_PTR, DWORD) {
  GUITHREADINFO state{};
  state.cbSize = sizeof state;
  if (!GetGUIThreadInfo(GetCurrentThreadId(), &state) || (state.flags & GUI_INMENUMODE) == 0) return;
  ADD_FAILURE() << "a menu is open";
  EndMenu();
}

TEST_F(FormLookTest, TheTextOfAMessageHasNoMenu) {
  ShowMessage("Sei sicuro ?", [](HWND form) {
    const HWND text = GetDlgItem(form, kText1);
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, CloseMenu);
    SendMessageW(text, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(text), MAKELPARAM(400, 300));
    KillTimer(nullptr, timer);
    CloseByCross(form);
  });
}

/// Whether `upper` is above `lower` in z-order.
bool IsAbove(HWND upper, HWND lower) {
  while (upper != nullptr && upper != lower) upper = GetWindow(upper, GW_HWNDNEXT);
  return upper != nullptr;
}

TEST_F(FormLookTest, AFlashBringsTheFormInFrontAgainAndLeavesTheFocusAlone) {
  const auto answer = [this](HWND form) {
    const HWND cover = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 800, 600,
                                       nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(cover);
    EXPECT_TRUE(IsAbove(cover, form)) << NameOf(form);
    Await("the form in front", [&] { return IsAbove(form, cover); });
    EXPECT_EQ(GetForegroundWindow(), cover) << NameOf(form);
    DestroyWindow(cover);
    CloseByCross(form);
  };
  ShowMessage("Sei sicuro ?", answer);
  WhenShown(answer);
  person.ShowChoice(kChoice);
}

/// Records how a form's title bar is drawn from now on: true for the active state.
class TitleBar {
 public:
  explicit TitleBar(HWND form) : form_(form) {
    SetWindowSubclass(form, Note, kNumber, reinterpret_cast<DWORD_PTR>(this));
  }
  ~TitleBar() { RemoveWindowSubclass(form_, Note, kNumber); }
  TitleBar(const TitleBar&) = delete;
  TitleBar& operator=(const TitleBar&) = delete;

  std::vector<bool> drawn;

 private:
  static constexpr UINT_PTR kNumber = 1;

  static LRESULT CALLBACK Note(HWND form, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR self) {
    if (message == WM_NCACTIVATE) reinterpret_cast<TitleBar*>(self)->drawn.push_back(wParam != FALSE);
    return DefSubclassProc(form, message, wParam, lParam);
  }

  HWND form_;
};

TEST_F(FormLookTest, TitleBarsOfMessagesAndChoicesFlash) {
  const auto answer = [this](HWND form) {
    {
      const TitleBar title(form);
      Await("two changes of the title bar", [&] { return title.drawn.size() >= 2; });
      EXPECT_NE(title.drawn[0], title.drawn[1]) << NameOf(form);
    }
    CloseByCross(form);
  };
  ShowMessage("Sei sicuro ?", answer);
  WhenShown(answer);
  person.ShowChoice(kChoice);
}

TEST_F(FormLookTest, OnlyMessagesAndChoicesFlash) {
  ShowEveryForm([](HWND form) {
    const bool flashes = ClassOf(form) == window_class::kOrvMsg || ClassOf(form) == window_class::kOrvInfo;
    // Only an existing timer can be killed.
    EXPECT_EQ(KillTimer(form, kTmrFlash) != FALSE, flashes) << NameOf(form);
    CloseByCross(form);
  });
}

TEST_F(FormLookTest, OnlyAShortMessageIsCentredAndNoneCanBeEdited) {
  for (const auto& [length, alignment] : {std::pair(59U, ES_CENTER), {60U, ES_LEFT}}) {
    ShowMessage(std::string(length, 'n'), [&](HWND form) {
      const LONG style = GetWindowLongW(GetDlgItem(form, kText1), GWL_STYLE);
      EXPECT_EQ(style & (ES_CENTER | ES_RIGHT), alignment) << length;
      EXPECT_NE(style & ES_READONLY, 0) << length;
      CloseByCross(form);
    });
  }
}

TEST_F(FormLookTest, AChoiceReturnsWhatIsSelected) {
  struct Case {
    bool frameVisible;
    int selected;
  };
  for (const auto& [frameVisible, selected] : {Case{true, 0}, {true, 1}, {true, 3}, {false, 0}, {false, 2}}) {
    ChoiceContent content = kChoice;
    content.frameVisible = frameVisible;
    content.selected = selected;
    WhenShown([](HWND form) { Click(form, kCommand + 1); });
    EXPECT_EQ(person.ShowChoice(content), std::optional(selected)) << frameVisible;
  }
}

TEST_F(FormLookTest, AChoiceThatIsClosedReturnsNothing) {
  WhenShown(CloseByCross);
  EXPECT_EQ(person.ShowChoice(kChoice), std::nullopt);
}

}  // namespace
}  // namespace orvenza::test
