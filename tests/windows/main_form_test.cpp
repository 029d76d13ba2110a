// Input of the hidden main form: from the keyboard, the system and the shell.

#include <gtest/gtest.h>

#include "core/version.h"
#include "ui/windows/names.h"
#include "windows/form_bench.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

constexpr int kInfo = 3;
constexpr int kConfigure = 4;

using HiddenFormTest = FormBench;

TEST_F(HiddenFormTest, HasItsCaptionAndPlaceBeforeThereIsAnIcon) {
  const HWND main = FindWindowW(window_class::kOrvMain, L"Orvenza");
  WINDOWPLACEMENT place{};
  place.length = sizeof place;
  ASSERT_TRUE(GetWindowPlacement(main, &place));
  const RECT& normal = place.rcNormalPosition;
  EXPECT_EQ(normal.left + normal.right, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_EQ(normal.top + normal.bottom, GetSystemMetrics(SM_CYSCREEN));
  EXPECT_GT(normal.right, normal.left);
  EXPECT_TRUE(IsIconic(main));
  EXPECT_FALSE(IsWindowVisible(main));
}

TEST(MainForm, HasItsCaptionBeforeThereIsAnIcon) {
  const Shop shop("", false);
  const Till till(shop);
  till.Form(window_class::kOrvConf);
  EXPECT_EQ(TextOf(till.Main()), std::string("Orvenza - ") + kVersionText);
}

TEST(MainForm, IsNotClosedByAKey) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  SendMessageW(till.Main(), WM_SYSCOMMAND, SC_CLOSE, 0);
  shop.Quit();
  EXPECT_EQ(till.ExitCode(), 0U);
  const Lines log = shop.Journal("Log.txt");
  EXPECT_EQ(Lines(log.end() - 2, log.end()), (Lines{"Quit Command !", "End"}));
}

TEST(MainForm, HandsTheKeyboardBackToTheDialogWhenItsMenuCloses) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.Menu(kConfigure);
  const HWND conf = till.Form(window_class::kOrvConf);
  till.TellIcon(WM_RBUTTONDOWN);
  till.AwaitMenu();
  Press(VK_ESCAPE);
  till.AwaitNoMenu();
  EXPECT_EQ(till.Form(window_class::kOrvConf), conf);
  Press(VK_RETURN);
  till.Gone(conf);
}

TEST(MainForm, LeavesTheForegroundToTheProgramInUseWhenItsMenuCloses) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  WindowsEventPump pump;
  const HWND inUse = CreateWindowExW(0, L"STATIC", L"Vendite", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                     200, nullptr, nullptr, nullptr, nullptr);
  const auto awaitInFront = [&] {
    till.Await("the program in use", [&] {
      pump.Dispatch();
      return GetForegroundWindow() == inUse;
    });
  };
  SetForegroundWindow(inUse);
  awaitInFront();
  till.TellIcon(WM_RBUTTONDOWN);
  till.AwaitMenu();
  Press(VK_ESCAPE);
  till.AwaitNoMenu();
  awaitInFront();
  till.Menu(kInfo);
  awaitInFront();
  DestroyWindow(inUse);
}

TEST(MainForm, ClosesAMenuThatWasLeftOpen) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.TellIcon(WM_LBUTTONDOWN);
  till.AwaitMenu();
  PostMessageW(till.Main(), WM_TIMER, kTmrMenu, 0);  // as if its time had expired
  till.AwaitNoMenu();
  EXPECT_TRUE(till.HasIcon());
}

TEST(Program, EndsInOrderWhenItsThreadIsAskedTo) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  PostThreadMessageW(GetWindowThreadProcessId(till.Main(), nullptr), WM_QUIT, 0, 0);
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt").back(), "End");
}

TEST(Program, AgreesToTheEndOfTheSessionAndGoesOnIfItDoesNotCome) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  EXPECT_EQ(SendMessageW(till.SessionWindow(), WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageW(till.SessionWindow(), WM_ENDSESSION, FALSE, 0);
  shop.Quit();
  EXPECT_EQ(till.ExitCode(), 0U);
  const Lines log = shop.Journal("Log.txt");
  EXPECT_EQ(Lines(log.end() - 2, log.end()), (Lines{"Quit Command !", "End"}));
}

}  // namespace
}  // namespace orvenza::test
