#include "core/logs.h"
#include "device/device_link.h"
#include "platform/ini_profile_file.h"
#include "simulator/scripted_operator.h"
#include "support/memory_files.h"
#include "windows_adapter/standin_bench.h"
#include "windows_adapter/test_pump.h"

namespace orvenza::test {
namespace {

/// The connector's side of the link, on the adapter.
class LinkTest : public StandInBench {
 protected:
  LinkTest() {
    settings.LogPath = "C:\\shop\\Log.txt";
    settings.ErrPath = "C:\\shop\\Err.txt";
    settings.ComPortNumber = 1;
    settings.ComSettings = "19200,O,7,1";
    settings.FrameRetry = 3;
    settings.TimeWaitForAck = 10001;
    settings.TxMessageRetry = 5;
    settings.Ident = 'V';
  }

  void TearDown() override {
    link.reset();
    StandInBench::TearDown();
  }

  void OpenLink() {
    link->OpenDeviceLink(777);
    Done();
  }

  /// The lines of the error log, without their stamps.
  Lines Errors() const {
    const auto found = files.content.find("C:\\shop\\Err.txt");
    std::istringstream text(found == files.content.end() ? "" : found->second);
    Lines lines;
    for (std::string line; std::getline(text, line);) {
      lines.push_back(line.substr(std::string("dd/mm/yyyy hh:mm:ss - ").size()));
      lines.back().pop_back();
    }
    return lines;
  }

  VirtualClock clock;
  TestPump testPump{pump, clock};
  MemoryFiles files;
  AppSettings settings;
  Logs logs{files, clock, settings, "C:\\shop"};
  EventLoop loop{clock, testPump};
  ScriptedOperator person{loop};
  OperatorMessages messages{person, "Orvenza"};
  IniProfileFile profile{files};
  PortDialog portDialog{person, settings, profile, {"C:\\shop", "Orvenza"}};
  LinkDialogs dialogs{messages, portDialog, logs};
  std::optional<DeviceLink> link{std::in_place, *adapter, settings, logs, dialogs, loop, clock};
};

constexpr const char* kNotCreated =
    "EcrLinkX1 - 429 - Component can't create object ( EcrLinkXControl1.EcrLinkX: 0x800401F3 not registered "
    ")";
constexpr const char* kClosed = "Apertura Porta non Riuscita ! ( COM1 )";

TEST_F(LinkTest, OpeningSetsTheControlUpAndOpensThePort) {
  link->OpenDeviceLink(50000);
  EXPECT_EQ(Done(),
            (Lines{"created", "initialised", "site", "connected", "activated", "set 18 True", "set 16 1",
                   "set 7 19200", "set 8 1", "set 9 7", "set 10 1", "set 14 3", "set 12 10001",
                   "set 13 50000", "set 15 5", "set 11 86", "set 6 True", "port open"}));
  EXPECT_EQ(Errors(), Lines{});
}

TEST_F(LinkTest, ACommandIsExchangedForItsReply) {
  OpenLink();
  const Reply reply = link->Exchange("321701");
  EXPECT_EQ(reply.Text(), "321700");
  EXPECT_EQ(Done(), (Lines{"set 17 321701", "call 2", "sent 321701", "received 321700"}));
}

TEST_F(LinkTest, AReplyFromInsideTheMethodThatSendsIsNotLost) {
  Behave("at-once");
  OpenLink();
  const Reply reply = link->Exchange("321701");
  EXPECT_EQ(reply.Text(), "321700");
  EXPECT_EQ(Done(), (Lines{"set 17 321701", "call 2", "sent 321701", "received 321700"}));
}

TEST_F(LinkTest, OpeningAgainSetsTheControlUpWhileThePortIsClosed) {
  OpenLink();
  link->ReopenForLongCommand();
  const Lines done = Done();
  EXPECT_EQ(Lines(done.begin(), done.begin() + 4),
            (Lines{"set 6 False", "port closed", "set 18 True", "set 16 1"}));
  EXPECT_EQ(done.back(), "port open");
  EXPECT_EQ(Errors(), Lines{});
}

TEST_F(LinkTest, LinkErrorsBecomeTheirMarkers) {
  Script("on 2001 link-error 1\non 2002 link-error 2\non 2003 link-error 3\n");
  OpenLink();
  Lines replies;
  for (const char* command : {"200101", "200201", "200301"}) {
    replies.push_back(link->Exchange(command).Text());
  }
  EXPECT_EQ(replies, (Lines{"ERR-1", "ERR-2", "ERR-3"}));
}

TEST_F(LinkTest, ACommandWithoutReplyIsGivenUp) {
  Script("on 2001 silence");
  OpenLink();
  const Reply reply = link->Exchange("200101");
  EXPECT_EQ(reply.Text(), "");
}

TEST_F(LinkTest, APrintedReceiptComesOutOfTheStandIn) {
  OpenLink();
  link->Exchange("106300");
  const Reply reply = link->Exchange("1064001PROVA");
  const Lines done = Done();
  EXPECT_EQ(reply.Text(), "106400");
  EXPECT_EQ(done.at(done.size() - 2), "printed PROVA");
}

TEST_F(LinkTest, AControlThatCannotBeCreatedIsAPortThatDoesNotOpen) {
  UnregisterStandIn();
  person.Answer("Annulla");
  person.Answer("S\u00EC");
  EXPECT_THROW(link->OpenDeviceLink(777), ProgramEnd);
  EXPECT_EQ(Errors(), (Lines{kNotCreated, kClosed, "Collegamento Annullato dall'Operatore"}));
}

TEST_F(LinkTest, AControlRegisteredDuringTheAlarmOpensAtTheNextTry) {
  UnregisterStandIn();
  clock.After(std::chrono::milliseconds(500), [] { RegisterStandIn(StandInLibraryPath()); });
  person.Answer("Riprova");
  OpenLink();
  EXPECT_EQ(Errors(), (Lines{kNotCreated, kClosed, kNotCreated}));
  const Reply reply = link->Exchange("321701");
  EXPECT_EQ(reply.Text(), "321700");
}

TEST_F(LinkTest, AControlThatDiesLosesItsCommandAndIsReplacedAtTheNextOpening) {
  OpenLink();
  Behave("dies-with=2001");
  const Reply reply = link->Exchange("200101");
  EXPECT_EQ(reply.Text(), "");
  EXPECT_FALSE(link->Present());
  const Lines errors{"EcrLinkX1 - 57 - Device I/O error ( member 2: 0x80010108 the control is gone )",
                     "EcrLinkX1 - 57 - Device I/O error ( member 5: 0x80010108 the control is gone )"};
  EXPECT_EQ(Errors(), errors);
  link->OpenDeviceLink(777);
  const Reply second = link->Exchange("200101");
  EXPECT_EQ(second.Text(), "200100");
  EXPECT_EQ(Errors(), errors);
}

}  // namespace
}  // namespace orvenza::test
