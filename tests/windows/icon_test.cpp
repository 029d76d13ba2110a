// The icon in the notification area and its menu.

#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "core/version.h"
#include "ui/windows/names.h"
#include "windows/control.h"
#include "windows/person.h"
#include "windows/picture.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

constexpr int kExit = 1;
constexpr int kUtilities = 2;
constexpr int kInfo = 3;
constexpr int kConfigure = 4;

const std::string kExitTitle = "Orvenza - " + LoadMessage(MessageId::kEndRequest);
const Lines kStarted = {std::string("Start Rel. ") + kVersionText, "Dati Cash : 00ORVSIM  01  01.00.00"};

Lines StartedThen(const Lines& more) {
  Lines lines = kStarted;
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

TEST(Icon, IsTheOnlyThingToSee) {
  const Shop shop;
  const Control control(shop.folder);
  const Till till(shop, Till::Link::kControl);
  till.AwaitStart();
  EXPECT_EQ(TextOf(till.Main()), std::string("Orvenza - ") + kVersionText);
  EXPECT_TRUE(till.Visible().empty());
  TakePicture(FindWindowW(L"Shell_TrayWnd", nullptr));
}

TEST(Program, CarriesTheIconByTheNumberThatItsFormsLookFor) {
  const HMODULE program = LoadLibraryExW(ProgramPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_NE(program, nullptr);
  EXPECT_NE(LoadImageW(program, MAKEINTRESOURCEW(1), IMAGE_ICON, 32, 32, LR_SHARED), nullptr);
  FreeLibrary(program);
}

TEST(Start, TheFirstWritesTheWholeSettingsFile) {
  const Shop shop("", false);
  const Till till(shop);
  till.Form(window_class::kOrvConf);
  const std::string settings = shop.folder.Read("Orvenza.ini");
  EXPECT_TRUE(settings.starts_with("[Version]\r\nVersion=1.06\r\n")) << settings;
  EXPECT_NE(settings.find("='***** Command File Name = command.txt *****\r\n"), std::string::npos)
      << settings;
  EXPECT_TRUE(settings.ends_with("Single Quantity=0\r\nFile Parser=0\r\n")) << settings;
  EXPECT_TRUE(shop.folder.Read("ErrDesc.ini").ends_with("\r\n116=Carta Scontrino Esaurita !\r\n"));
}

TEST(Icon, OpensItsMenuWhenPressedWithEitherButton) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  for (const LPARAM press : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
    till.TellIcon(press);
    till.AwaitMenu();
    PostMessageW(till.Main(), WM_KEYDOWN, VK_ESCAPE, 1);
    till.AwaitNoMenu();
  }
}

TEST(Icon, OpensNoMenuForOtherNewsOfTheMouse) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  for (const LPARAM news : {WM_MOUSEMOVE, WM_LBUTTONUP, WM_RBUTTONUP, WM_LBUTTONDBLCLK, WM_MBUTTONDOWN}) {
    SendMessageW(till.Picture1(), kIconMessage, 1, news);  // returns when everything is done
    EXPECT_EQ(till.MenuNow(), nullptr) << news;
  }
}

TEST(Icon, ComesBackWithANewShell) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.LoseIcon();
  ASSERT_FALSE(till.HasIcon());
  SendMessageW(till.Main(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  EXPECT_TRUE(till.HasIcon());
}

TEST(MainForm, CannotBeRestored) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  const HWND main = till.Main();
  for (const int command : {SW_RESTORE, SW_SHOW, SW_MAXIMIZE, SW_MINIMIZE, SW_SHOWNOACTIVATE}) {
    ShowWindow(main, command);
    EXPECT_FALSE(IsWindowVisible(main)) << command;
    EXPECT_TRUE(IsIconic(main)) << command;
    EXPECT_TRUE(till.HasIcon()) << command;
  }
  SetWindowPos(main, nullptr, 0, 0, 500, 400, SWP_SHOWWINDOW);
  EXPECT_FALSE(IsWindowVisible(main));
  EXPECT_TRUE(till.HasIcon());
}

TEST(Menu, IsUsedByTheKeyboardToo) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.TellIcon(WM_LBUTTONDOWN);
  till.AwaitMenu();
  Press(VK_UP);
  Press(VK_UP);
  Press(VK_RETURN);
  till.Form(window_class::kOrvConf);
}

TEST(Menu, InfoDoesNothing) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.Menu(kInfo);
  shop.Quit();
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt"), StartedThen({"Quit Command !", "End"}));
}

TEST(Menu, ExitAsksBeforeItEnds) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.Menu(kExit);
  const HWND question = till.Form(window_class::kOrvMsg, kExitTitle);
  EXPECT_EQ(TextOf(question, control_id::kText1),
            LoadMessage(MessageId::kNoReceiptsAfterEnd) + "\r\n" + LoadMessage(MessageId::kAreYouSure));
  EXPECT_NE(GetDlgItem(question, control_id::kImage + 2), nullptr);
  EXPECT_TRUE(till.HasIcon());
  Press(VK_RETURN);
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_FALSE(IsWindow(question));
  EXPECT_EQ(shop.Journal("Log.txt"), StartedThen({LoadMessage(MessageId::kEndedByOperator), "End"}));
}

TEST(Menu, ExitIsForgottenWhenNotConfirmed) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  const auto refuse = [&](const std::function<void(HWND)>& how) {
    till.Menu(kExit);
    const HWND question = till.Form(window_class::kOrvMsg);
    how(question);
    till.Gone(question);
  };
  refuse([](HWND question) { Click(question, control_id::kCommand0 + 2); });
  refuse([](HWND) { Press(VK_ESCAPE); });
  refuse(CloseByCross);
  EXPECT_TRUE(till.HasIcon());
  shop.Quit();
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt"), StartedThen({"Quit Command !", "End"}));
}

TEST(Menu, ClosesTheWaitingMessageFirst) {
  const Shop shop("on 3217 link-error 1\n");
  const Till till(shop);
  const HWND alarm = till.Form(window_class::kOrvMsg);
  till.Menu(kConfigure);
  till.Gone(alarm);
  const HWND conf = till.Form(window_class::kOrvConf);
  Press(VK_ESCAPE);
  till.Gone(conf);
  till.Await("the identity", [&] { return shop.Journal("Log.txt") == kStarted; });
}

TEST(Menu, ClosesAQuestionOfTheUtilitiesButNotTheUtilities) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.Menu(kUtilities);
  const HWND utilities = till.Form(window_class::kOrvUti);
  PressWithAlt('C');
  const HWND question = till.Form(window_class::kOrvMsg);
  till.Menu(kConfigure);
  till.Gone(question);
  const HWND conf = till.Form(window_class::kOrvConf);
  EXPECT_FALSE(IsWindowEnabled(utilities));
  Press(VK_ESCAPE);
  till.Gone(conf);
  EXPECT_EQ(till.Form(window_class::kOrvUti), utilities);
}

TEST(Menu, EndsTheProgramFromBelowOtherDialogs) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.Menu(kUtilities);
  till.Form(window_class::kOrvUti);
  till.Menu(kExit);
  till.Form(window_class::kOrvMsg, kExitTitle);
  Press(VK_RETURN);
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt").back(), "End");
}

}  // namespace
}  // namespace orvenza::test
