// The ways to start the program, up to its icon.

#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "core/version.h"
#include "ui/windows/names.h"
#include "windows/control.h"
#include "windows/person.h"
#include "windows/till.h"

namespace orvenza::test {
namespace {

using namespace control_id;

const std::string kAlarm = "Orvenza - " + LoadMessage(MessageId::kCommunicationWarning);
const Lines kStarted = {std::string("Start Rel. ") + kVersionText, "Dati Cash : 00ORVSIM  01  01.00.00"};

bool Holds(const Shop& shop, const std::string& line) {
  return shop.folder.Read("Orvenza.ini").find(line + "\r\n") != std::string::npos;
}

TEST(FirstStart, AsksForThePortAndMakesWhatItNeeds) {
  const Shop shop("", false);
  const Till till(shop);
  const HWND form = till.Form(window_class::kOrvConf);
  EXPECT_FALSE(till.HasIcon());
  Press(VK_DOWN);
  Press(VK_DOWN);
  Press(VK_RETURN);
  till.Gone(form);
  till.AwaitIcon();
  EXPECT_TRUE(Holds(shop, "Version=1.06"));
  EXPECT_TRUE(Holds(shop, "ComPort=3"));
  EXPECT_TRUE(Holds(shop, "Settings=19200,O,7,1"));
  EXPECT_TRUE(Holds(shop, "TicketFiles=" + shop.folder.Path("data\\*.txt")));
  EXPECT_TRUE(shop.folder.Has("ErrDesc.ini"));
  EXPECT_TRUE(shop.folder.Has("data\\inproces") && shop.folder.Has("data\\abort"));
  till.Await("the start", [&] { return shop.folder.Read("Log.txt").find("Dati Cash") != std::string::npos; });
  EXPECT_NE(shop.folder.Read("Log.txt").find("Default INI !"), std::string::npos);
}

TEST(FirstStart, GoesOnWithoutAnAnswer) {
  const Shop shop("", false);
  const Till till(shop);
  const HWND form = till.Form(window_class::kOrvConf);
  Press(VK_ESCAPE);
  till.Gone(form);
  till.AwaitIcon();
  EXPECT_TRUE(Holds(shop, "ComPort=1"));
}

TEST(Start, ReportsSettingsThatWereBroughtUpToDate) {
  const Shop shop;
  std::string settings = shop.folder.Read("Orvenza.ini");
  shop.folder.Write("Orvenza.ini", settings.replace(settings.find("1.06"), 4, "1.05"));
  const Till till(shop);
  const HWND message = till.Form(window_class::kOrvMsg, "Orvenza");
  EXPECT_EQ(TextOf(message, kText1), "\r\n" + LoadMessage(MessageId::kIniUpgraded));
  Press(VK_RETURN);
  till.AwaitStart();
  EXPECT_TRUE(Holds(shop, "Version=1.06"));
}

TEST(Start, RefusesSettingsOfAnUnknownVersion) {
  const Shop shop;
  std::string settings = shop.folder.Read("Orvenza.ini");
  shop.folder.Write("Orvenza.ini", settings.replace(settings.find("1.06"), 4, "9.99"));
  const Till till(shop);
  const HWND message = till.Form(window_class::kOrvMsg, "Orvenza");
  EXPECT_EQ(TextOf(message, kText1), "\r\n" + LoadMessage(MessageId::kWrongIniVersion) + "\r\n" +
                                         LoadMessage(MessageId::kProgramEnded));
  Press(VK_RETURN);
  EXPECT_EQ(till.ExitCode(), 4U);
  EXPECT_TRUE(Holds(shop, "Version=9.99"));
}

TEST(Start, AsksUntilThePortOpens) {
  const Shop shop("port-fails 2\n");
  const Till till(shop);
  const HWND first = till.Form(window_class::kOrvMsg, kAlarm);
  EXPECT_EQ(TextOf(first, kText1), "\r\n" + LoadMessage(MessageId::kPortNotOpened) + " ( COM1 )");
  Press(VK_RETURN);
  till.Gone(first);
  till.Form(window_class::kOrvMsg, kAlarm);
  EXPECT_FALSE(till.HasIcon());
  Press(VK_RETURN);
  till.AwaitStart();
  const std::string refusal = LoadMessage(MessageId::kPortNotOpened) + " ( COM1 )";
  EXPECT_EQ(shop.Journal("Err.txt"), (Lines{refusal, refusal}));
}

TEST(Start, OpensThePortThatTheOperatorChoosesInstead) {
  const Shop shop;
  const Control control(shop.folder, "port-fails 1\n");
  const Till till(shop, Till::Link::kControl);
  Click(till.Form(window_class::kOrvMsg, kAlarm), kCommand0 + 3);
  till.Form(window_class::kOrvConf);
  Press(VK_END);
  Press(VK_RETURN);
  till.AwaitStart();
  EXPECT_TRUE(Holds(shop, "ComPort=16"));
  const std::string log = shop.folder.Read("standin.log");
  const std::size_t reopened = log.find("set 16 16\n");
  EXPECT_LT(log.find("set 16 1\n"), log.find("port not open\n"));
  EXPECT_LT(log.find("port not open\n"), reopened);
  EXPECT_NE(log.find("port open\n", reopened), std::string::npos);
}

TEST(Start, EndsWhenThePortIsGivenUp) {
  const Shop shop("port-fails 9\n");
  const Till till(shop);
  Click(till.Form(window_class::kOrvMsg, kAlarm), kCommand0 + 2);
  till.Form(window_class::kOrvMsg, "Orvenza - " + LoadMessage(MessageId::kEndRequest));
  Press(VK_RETURN);
  EXPECT_EQ(till.ExitCode(), 0U);
  EXPECT_EQ(shop.Journal("Err.txt"), (Lines{LoadMessage(MessageId::kPortNotOpened) + " ( COM1 )",
                                            LoadMessage(MessageId::kLinkCancelled)}));
}

TEST(Start, SaysThatThereIsNoControl) {
  const Shop shop;
  const Till till(shop, Till::Link::kControl);
  till.Form(window_class::kOrvMsg, kAlarm);
  const std::string reason = "EcrLinkX1 - 429 - Component can't create object";
  EXPECT_EQ(shop.Journal("Err.txt").front().substr(0, reason.size()), reason);
}

TEST(Start, RefusesASecondCopyAndLeavesTheFirstAlone) {
  const Shop shop;
  const Till first(shop);
  first.AwaitStart();
  const Till second(shop);
  const HWND message = second.Form(window_class::kOrvMsg, "Orvenza");
  EXPECT_EQ(TextOf(message, control_id::kText1), "\r\n" + LoadMessage(MessageId::kAlreadyRunning));
  Press(VK_RETURN);
  EXPECT_EQ(second.ExitCode(), 3U);
  EXPECT_EQ(shop.Journal("error.txt"), (Lines{LoadMessage(MessageId::kAlreadyRunning)}));
  EXPECT_TRUE(first.HasIcon());
  EXPECT_EQ(shop.Journal("Log.txt"), kStarted);
}

}  // namespace
}  // namespace orvenza::test
