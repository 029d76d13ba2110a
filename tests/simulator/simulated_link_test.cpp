#include "simulator/simulated_link.h"

#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "simulator/item_command.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Events = std::vector<std::string>;

/// The program's end of the link: records each event, replies by their text.
class Listener : public EcrLinkEvents {
 public:
  explicit Listener(EcrLink& link) : link_(link) {}

  void ReplyReceived() override { events.push_back(link_.RxMessage()); }
  void LinkError1() override { events.push_back("link error 1"); }
  void LinkError3() override { events.push_back("link error 3"); }
  void LinkError2() override { events.push_back("link error 2"); }

  Events events;

 private:
  EcrLink& link_;
};

class SimulatedLinkTest : public testing::Test {
 protected:
  /// Creates a link with a script to the register and opens it.
  void Connect(const std::string& script) {
    link = std::make_unique<SimulatedLink>(device, clock, ParseFaultScript("prova.sim", script));
    listener = std::make_unique<Listener>(*link);
    link->SetEvents(listener.get());
    link->SetPortOpen(true);
  }

  void Send(const std::string& command) {
    link->SetMessage(command);
    link->Send();
  }

  /// Sends a command, waits longer than any reply takes, and returns the events.
  Events Exchange(const std::string& command) {
    listener->events.clear();
    Send(command);
    clock.Advance(15s);
    return listener->events;
  }

  VirtualClock clock;
  PaperRoll paper;
  SimulatedRegister device{clock, paper};
  std::unique_ptr<SimulatedLink> link;
  std::unique_ptr<Listener> listener;
  const std::string bread = ItemCommand("1003", "PANE", 1000, 150);
};

TEST_F(SimulatedLinkTest, AnswersLaterNeverInsideSend) {
  Connect("");
  Send("321701");
  EXPECT_EQ(listener->events, Events());
  clock.Advance(1s);
  EXPECT_EQ(listener->events, Events{"321700"});
  EXPECT_EQ(link->RxMessage(), "321700");
}

TEST_F(SimulatedLinkTest, TakesTheTimeOfTheCharactersAtTheConfiguredSpeed) {
  Connect("");
  link->SetProperty(LinkProperty::kBaudRate, 19200);
  Send("321701");
  clock.WaitForEvent(1s);
  EXPECT_EQ(clock.Uptime(), 3125us);  // 6 characters there ...
  clock.WaitForEvent(1s);
  EXPECT_EQ(clock.Uptime(), 6250us);  // ... and 6 back, 10 bits each.
  EXPECT_EQ(listener->events, Events{"321700"});
}

TEST_F(SimulatedLinkTest, LosesNoFractionOfTheTimeOnTheWay) {
  Connect("");
  link->SetProperty(LinkProperty::kBaudRate, 9600);
  Send("199900");
  while (listener->events.empty()) clock.WaitForEvent(1s);
  EXPECT_EQ(clock.Uptime(), 33333333ns);  // 6 + 26 characters of 10 bits.
}

TEST_F(SimulatedLinkTest, TheScriptsSpeedGoesBeforeTheConfiguredOne) {
  Connect("speed 1200");
  link->SetProperty(LinkProperty::kBaudRate, 19200);
  Send("321701");
  while (listener->events.empty()) clock.WaitForEvent(1s);
  EXPECT_EQ(clock.Uptime(), 100ms);
}

TEST_F(SimulatedLinkTest, AnInstantLineAnswersWithTheNextDelivery) {
  Connect("speed instant");
  Send("321701");
  EXPECT_EQ(listener->events, Events());
  clock.Dispatch();
  EXPECT_EQ(listener->events, Events{"321700"});
  EXPECT_EQ(clock.Uptime(), 0ns);
}

TEST_F(SimulatedLinkTest, TheRegisterActsOnceTheCommandIsOver) {
  Connect("");
  Send(bread);
  EXPECT_FALSE(device.ReceiptOpen());
  clock.WaitForEvent(1s);
  EXPECT_TRUE(device.ReceiptOpen());
  EXPECT_EQ(listener->events, Events());
}

TEST_F(SimulatedLinkTest, ClosingThePortDropsWhatIsOnItsWay) {
  Connect("");
  Send(bread);
  clock.WaitForEvent(1s);
  link->SetPortOpen(false);
  link->SetPortOpen(true);
  clock.Advance(1s);
  EXPECT_EQ(listener->events, Events());
  EXPECT_TRUE(device.ReceiptOpen());
  EXPECT_EQ(Exchange("321701"), Events{"ERR17"});
}

TEST_F(SimulatedLinkTest, NothingIsSentThroughAClosedPort) {
  Connect("");
  link->SetPortOpen(false);
  EXPECT_EQ(Exchange("321701"), Events());
  EXPECT_EQ(link->SentCount(), 0u);
}

TEST_F(SimulatedLinkTest, ALinkThatIsGoneRaisesNothing) {
  Connect("after 100 paper-out journal");
  Send("321701");
  link.reset();
  clock.Advance(1s);
  EXPECT_EQ(listener->events, Events());
  EXPECT_FALSE(device.PaperOut());
}

TEST_F(SimulatedLinkTest, WithoutAListenerEventsAreLost) {
  Connect("on 3217 link-error 1");
  link->SetEvents(nullptr);
  EXPECT_EQ(Exchange("321701"), Events());
  EXPECT_EQ(Exchange("321701"), Events());
}

TEST_F(SimulatedLinkTest, RemembersHowItWasSetUp) {
  Connect("");
  link->SetReset(true);
  link->SetProperty(LinkProperty::kPortNumber, 1);
  link->SetProperty(LinkProperty::kBaudRate, 19200);
  link->SetProperty(LinkProperty::kParity, 1);
  link->SetProperty(LinkProperty::kDataBits, 7);
  link->SetProperty(LinkProperty::kStopBits, 1);
  link->SetProperty(LinkProperty::kFrameRetries, 3);
  link->SetProperty(LinkProperty::kAcknowledgementWait, 10000);
  link->SetProperty(LinkProperty::kEndOfTextWait, 50000);
  link->SetProperty(LinkProperty::kMessageRetries, 5);
  link->SetProperty(LinkProperty::kIdentifier, 86);
  link->SetPortOpen(false);
  EXPECT_EQ(link->Settings(), (std::deque<std::string>{
                                  "PortOpen 1", "Reset 1", "PortNumber 1", "BaudRate 19200", "Parity 1",
                                  "DataBits 7", "StopBits 1", "FrameRetries 3", "AcknowledgementWait 10000",
                                  "EndOfTextWait 50000", "MessageRetries 5", "Identifier 86", "PortOpen 0"}));
  EXPECT_EQ(link->Property(LinkProperty::kIdentifier), 86);
}

TEST_F(SimulatedLinkTest, APropertyNeverSetHasNoValue) {
  Connect("");
  EXPECT_EQ(link->Property(LinkProperty::kBaudRate), std::nullopt);
}

TEST_F(SimulatedLinkTest, DoesNotOpenWithoutASpeed) {
  for (const int speed : {0, -1}) {
    Connect("");
    link->SetPortOpen(false);
    link->SetProperty(LinkProperty::kBaudRate, speed);
    link->SetPortOpen(true);
    EXPECT_FALSE(link->PortOpen()) << speed;
  }
}

TEST_F(SimulatedLinkTest, IsPresentWhileThePortIsOpen) {
  Connect("");
  EXPECT_TRUE(link->DevicePresent());
  link->SetPortOpen(false);
  EXPECT_FALSE(link->DevicePresent());
}

TEST_F(SimulatedLinkTest, IsAbsentForAsManyReadsAsScripted) {
  Connect("absent 2");
  EXPECT_FALSE(link->DevicePresent());
  EXPECT_FALSE(link->DevicePresent());
  EXPECT_TRUE(link->DevicePresent());
}

TEST_F(SimulatedLinkTest, IsAbsentFromATimeOnOrAfterACommand) {
  Connect("after 60000 absent 1\non 1003 #2 absent 1");
  clock.Advance(59999ms);
  EXPECT_TRUE(link->DevicePresent());
  clock.Advance(1ms);
  EXPECT_FALSE(link->DevicePresent());
  EXPECT_EQ(Exchange(bread), Events{"100300"});
  EXPECT_TRUE(link->DevicePresent());
  EXPECT_EQ(Exchange(bread), Events{"100300"});
  EXPECT_FALSE(link->DevicePresent());
  EXPECT_TRUE(link->DevicePresent());
}

TEST_F(SimulatedLinkTest, ThePortFailsToOpenAsOftenAsScripted) {
  Connect("port-fails 2");
  EXPECT_FALSE(link->PortOpen());
  link->SetPortOpen(false);
  link->SetPortOpen(true);
  EXPECT_FALSE(link->PortOpen());
  link->SetPortOpen(true);
  EXPECT_TRUE(link->PortOpen());
}

TEST_F(SimulatedLinkTest, AnOpenPortStaysOpenWhenOpenedAgain) {
  Connect("on 3217 port-fails 1");
  Exchange("321701");
  link->SetPortOpen(true);
  EXPECT_TRUE(link->PortOpen());
  link->SetPortOpen(false);
  link->SetPortOpen(true);
  EXPECT_FALSE(link->PortOpen());
}

TEST_F(SimulatedLinkTest, AReceiptCanBeKeyedInAndPaidAtTheRegister) {
  Connect("receipt-open\non 3217 #3 receipt-paid");
  EXPECT_EQ(Exchange("321701"), Events{"ERR17"});
  EXPECT_EQ(Exchange("321701"), Events{"ERR17"});
  EXPECT_EQ(Exchange("321701"), Events{"321700"});
  ASSERT_EQ(device.Receipts().size(), 1u);
  EXPECT_EQ(device.Receipts()[0].total, 100);
  EXPECT_FALSE(device.Receipts()[0].voided);
  EXPECT_EQ(device.Receipts()[0].lines.at(3), "A MANO                              1,00");
}

TEST_F(SimulatedLinkTest, WhatIsKeyedInLeavesAReceiptOfTheProgramAlone) {
  Connect("on 3217 receipt-open\non 3217 #2 receipt-paid");
  Exchange(bread);
  EXPECT_EQ(Exchange("321701"), Events{"ERR17"});
  EXPECT_EQ(Exchange("321701"), Events{"ERR17"});
  EXPECT_TRUE(device.Receipts().empty());
}

TEST_F(SimulatedLinkTest, AScriptedReplyReplacesTheCommand) {
  Connect("on 1003 reply ERR13");
  EXPECT_EQ(Exchange(bread), Events{"ERR13"});
  EXPECT_FALSE(device.ReceiptOpen());
  EXPECT_EQ(Exchange(bread), Events{"100300"});
}

TEST_F(SimulatedLinkTest, AnEmptyReplyIsStillAnEvent) {
  Connect("on 3217 reply \"\"");
  EXPECT_EQ(Exchange("321701"), Events{""});
}

TEST_F(SimulatedLinkTest, SilenceIsNoEvent) {
  Connect("on 1003 silence");
  EXPECT_EQ(Exchange(bread), Events());
  EXPECT_FALSE(device.ReceiptOpen());
}

TEST_F(SimulatedLinkTest, ALostReplyHidesAnEventThatHappened) {
  Connect("on 1003 lose-reply");
  EXPECT_EQ(Exchange(bread), Events());
  EXPECT_TRUE(device.ReceiptOpen());
}

TEST_F(SimulatedLinkTest, RaisesEachOfTheThreeLinkErrors) {
  Connect("on 1003 link-error 1\non 1003 #2 link-error 2\non 1003 #3 link-error 3");
  EXPECT_EQ(Exchange(bread), Events{"link error 1"});
  EXPECT_EQ(Exchange(bread), Events{"link error 2"});
  EXPECT_EQ(Exchange(bread), Events{"link error 3"});
  EXPECT_FALSE(device.ReceiptOpen());
}

TEST_F(SimulatedLinkTest, ALateReplyComesAfterItsDelay) {
  Connect("on 3217 late 16000");
  Send("321701");
  clock.Advance(16s + 6249us);
  EXPECT_EQ(listener->events, Events());
  clock.Advance(1us);
  EXPECT_EQ(listener->events, Events{"321700"});
}

TEST_F(SimulatedLinkTest, PaperEndsWithACommandOrByItself) {
  Connect("on 1003 #2 paper-out journal\nafter 60000 paper-out receipt");
  EXPECT_EQ(Exchange(bread), Events{"100300"});
  EXPECT_EQ(Exchange(bread), Events{"ERR01"});
  EXPECT_EQ(Exchange("114900"), Events{"114900"});
  clock.Advance(60s);
  EXPECT_EQ(Exchange("321701"), Events{"ERR02"});
}

TEST_F(SimulatedLinkTest, PaperCanBeOutFromTheStart) {
  Connect("paper-out receipt");
  EXPECT_EQ(Exchange("321701"), Events{"ERR02"});
}

TEST_F(SimulatedLinkTest, StrikesTheOccurrencesThatAreNamed) {
  Connect("on 3217 #2 x2 reply ERR05\non 321701 #5 x* reply ERR06");
  Events all;
  for (int i = 0; i < 6; ++i) all.push_back(Exchange("321701").at(0));
  EXPECT_EQ(all, (Events{"321700", "ERR05", "ERR05", "321700", "ERR06", "ERR06"}));
}

TEST_F(SimulatedLinkTest, MatchesTheBeginningOfTheCommandOnly) {
  Connect("on 01 x* silence\non 199900 silence");
  EXPECT_EQ(Exchange("321701"), Events{"321700"});
  EXPECT_EQ(Exchange("199900"), Events());
}

TEST_F(SimulatedLinkTest, OfTwoFaultsAtOnceTheFirstStrikes) {
  Connect("on 3217 x2 reply ERR05\non 3217 x3 reply ERR06");
  EXPECT_EQ(Exchange("321701"), Events{"ERR05"});
  EXPECT_EQ(Exchange("321701"), Events{"ERR05"});
  EXPECT_EQ(Exchange("321701"), Events{"ERR06"});
}

TEST_F(SimulatedLinkTest, RemembersTheLastCommandsSent) {
  Connect("speed instant");
  for (std::size_t i = 0; i < SimulatedLink::kKept + 1; ++i) Send(i == 0 ? "199900" : "321701");
  EXPECT_EQ(link->SentCount(), SimulatedLink::kKept + 1);
  EXPECT_EQ(link->Sent().size(), SimulatedLink::kKept);
  EXPECT_EQ(link->Sent().front(), "321701");
}

TEST_F(SimulatedLinkTest, TellsAnObserverWhatHappensOnTheLine) {
  Connect("on 3217 #2 link-error 3\nabsent 1");
  Events told;
  link->SetObserver([&](LineEvent event, const std::string& text) {
    const char* const names[] = {"sent ", "received ", "error ", "port ", "absent "};
    told.push_back(names[static_cast<int>(event)] + text);
  });
  link->DevicePresent();
  Exchange("321701");
  Exchange("321701");
  link->SetPortOpen(false);
  link->SetProperty(LinkProperty::kBaudRate, 0);
  link->SetPortOpen(true);
  link->SetProperty(LinkProperty::kBaudRate, 9600);
  link->SetPortOpen(true);
  EXPECT_EQ(told, (Events{"absent ", "sent 321701", "received 321700", "sent 321701", "error 3",
                          "port closed", "port not open", "port open"}));
}

}  // namespace
}  // namespace orvenza::test
