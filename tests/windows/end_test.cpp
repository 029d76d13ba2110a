// The ways to end the program, whatever it is doing.

#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "core/version.h"
#include "ui/windows/names.h"
#include "windows/control.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

constexpr int kExit = 1;
constexpr int kUtilities = 2;
constexpr int kConfigure = 4;
constexpr const char* kTicket = "1;Caffe' espresso;2,000;120;1;;;1;;\r\n2;1;500;\r\n";

const std::string kExitTitle = "Orvenza - " + LoadMessage(MessageId::kEndRequest);
const Lines kStarted = {std::string("Start Rel. ") + kVersionText, "Dati Cash : 00ORVSIM  01  01.00.00"};

Lines StartedThen(const Lines& more) {
  Lines lines = kStarted;
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

void ExitByMenu(const Till& till) {
  till.Menu(kExit);
  till.Form(window_class::kOrvMsg, kExitTitle);
  Press(VK_RETURN);
}

void CloseMainForm(const Till& till) { PostMessageW(till.Main(), WM_CLOSE, 0, 0); }

struct WaitingDialog {
  const char* script;
  const wchar_t* form;
  int menuItem;  ///< The item that opens it; 0 for a dialog that comes with the ticket or before it.
};

const WaitingDialog kDialogs[] = {
    {"on 3217 link-error 1\n", window_class::kOrvMsg, 0},
    {"on 1004 reply ERR08\n", window_class::kOrvInfo, 0},
    {"on 1004 paper-out receipt\n", window_class::kOrvInfo, 0},
    {"", window_class::kOrvUti, kUtilities},
    {"", window_class::kOrvConf, kConfigure},
};

TEST(End, ComesWhileAnyDialogWaits) {
  for (const auto& end : {ExitByMenu, CloseMainForm}) {
    for (const auto& [script, form, menuItem] : kDialogs) {
      const Shop shop(script);
      if (menuItem == 0) shop.Drop("0001.txt", kTicket);
      const Till till(shop);
      if (menuItem != 0) {
        till.AwaitStart();
        till.Menu(menuItem);
      }
      till.Form(form);
      end(till);
      till.ExpectEnd();
    }
  }
}

void EndSession(const Till& till) { SendMessageW(till.SessionWindow(), WM_ENDSESSION, TRUE, 0); }

struct EarlyDialog {
  const char* script;
  bool withSettings;
  const wchar_t* form;
};

/// The menu belongs to the icon, so there is none yet.
const EarlyDialog kEarlyDialogs[] = {
    {"", false, window_class::kOrvConf},
    {"port-fails 9\n", true, window_class::kOrvMsg},
};

TEST(End, ComesWhileADialogWaitsBeforeThereIsAnIcon) {
  for (const auto& end : {CloseMainForm, EndSession}) {
    for (const auto& [script, withSettings, form] : kEarlyDialogs) {
      const Shop shop(script, withSettings);
      const Till till(shop);
      till.Form(form);
      EXPECT_FALSE(till.HasIcon());
      end(till);
      till.ExpectEnd();
      EXPECT_TRUE(shop.folder.Read("Orvenza.ini").starts_with("[Version]\r\nVersion=1.06\r\n"));
    }
  }
}

TEST(End, ComesWhileACommandIsOutAndKeepsTheTicket) {
  const Shop shop;
  const Control control(shop.folder, "on 1004 silence\n");
  shop.Drop("0001.txt", kTicket);
  const Till till(shop, Till::Link::kControl);
  till.Await("the command",
             [&] { return shop.folder.Read("standin.log").find("sent 1004") != std::string::npos; });
  ExitByMenu(till);
  till.ExpectEnd();
  EXPECT_EQ(shop.folder.Read("data\\inproces\\0001.txt"), kTicket);
  EXPECT_FALSE(shop.folder.Has("storico\\1.txt"));
}

TEST(End, LeavesNoIconBehind) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  EXPECT_TRUE(till.HasIcon());
  ExitByMenu(till);
  till.ExpectEnd();
}

TEST(End, ComesWithTheSession) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  EXPECT_EQ(SendMessageW(till.Main(), WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageW(till.Main(), WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt"), StartedThen({"End"}));
}

TEST(End, HoldsUpTheEndOfTheSession) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  till.Menu(kConfigure);
  till.Form(window_class::kOrvConf);
  till.TellIcon(WM_RBUTTONDOWN);
  till.AwaitMenu();
  SendMessageW(till.SessionWindow(), WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(shop.Journal("Log.txt"), StartedThen({"End"}));
  EXPECT_EQ(till.ExitCode(), 0U);
}

TEST(End, DoesNotComeWithASessionThatGoesOn) {
  const Shop shop;
  const Till till(shop);
  till.AwaitStart();
  SendMessageW(till.Main(), WM_ENDSESSION, FALSE, 0);
  SendMessageW(till.SessionWindow(), WM_ENDSESSION, FALSE, 0);
  shop.Quit();
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt"), StartedThen({"Quit Command !", "End"}));
}

TEST(End, ComesWhenAnotherProgramClosesTheMainForm) {
  const Shop shop("on 3217 link-error 1\n");
  const Till till(shop);
  till.Form(window_class::kOrvMsg);  // whichever message is open
  PostMessageW(till.Main(), WM_CLOSE, 0, 0);
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Log.txt").back(), "End");
}

}  // namespace
}  // namespace orvenza::test
