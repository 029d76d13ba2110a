// The switches of the register and its line, and faults that await a command, as lines of the script.

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "simulator/item_command.h"
#include "simulator/simulated_link.h"
#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Events = std::vector<std::string>;

constexpr const char* kStatus = "321701";
constexpr const char* kPayment = "103601000000000";

/// A link whose events are recorded as texts.
class RegisterSwitchesTest : public testing::Test {
 protected:
  void Connect(const std::string& script) {
    link = std::make_unique<SimulatedLink>(device, clock, ParseFaultScript("prova.sim", script));
    link->SetObserver([this](LineEvent event, const std::string& text) {
      if (event == LineEvent::kReceived) events.push_back(text);
      if (event == LineEvent::kLinkError) events.push_back("link error " + text);
    });
    link->SetPortOpen(true);
  }

  /// Carries out a line of the script now.
  void Strike(const std::string& line) { link->Strike(ParseFaultScript("prova.sim", line).faults.at(0)); }

  void Send(const std::string& command) {
    link->SetMessage(command);
    link->Send();
  }

  /// Sends a command, waits longer than an ordinary reply takes, and returns the events.
  Events Exchange(const std::string& command) {
    events.clear();
    Send(command);
    clock.Advance(1s);
    return events;
  }

  VirtualClock clock;
  PaperRoll paper;
  SimulatedRegister device{clock, paper};
  std::unique_ptr<SimulatedLink> link;
  Events events;
  const std::string bread = ItemCommand("1003", "PANE", 1000, 150);
};

TEST_F(RegisterSwitchesTest, AFaultAwaitsTheNextCommandWhateverItIs) {
  Connect("next reply ERR08");
  EXPECT_EQ(Exchange(bread), Events{"ERR08"});
  EXPECT_EQ(Exchange(bread), Events{"100300"});
}

TEST_F(RegisterSwitchesTest, AFaultAwaitsACommandFromItsTimeOn) {
  Connect("after 5000 next silence");
  EXPECT_EQ(Exchange(kStatus), Events{"321700"});
  clock.Advance(4s);
  EXPECT_EQ(Exchange(kStatus), Events());
  EXPECT_EQ(Exchange(kStatus), Events{"321700"});
}

TEST_F(RegisterSwitchesTest, AFaultStrikesEveryCommandUntilItIsEnded) {
  Connect("after 5000 every link-error 2\nafter 9000 no fault");
  EXPECT_EQ(Exchange(kStatus), Events{"321700"});
  clock.Advance(4s);
  EXPECT_EQ(Exchange(kStatus), Events{"link error 2"});
  EXPECT_EQ(Exchange(bread), Events{"link error 2"});
  clock.Advance(2s);
  EXPECT_EQ(Exchange(bread), Events{"100300"});
}

TEST_F(RegisterSwitchesTest, EveryFaultOfTheExchangeCanAwaitACommand) {
  Connect("");
  Strike("next lose-reply");
  EXPECT_EQ(Exchange(bread), Events());
  EXPECT_TRUE(device.ReceiptOpen());
  Strike("next late 5000");
  EXPECT_EQ(Exchange(kPayment), Events());
  clock.Advance(5s);
  EXPECT_EQ(events, Events{"103600"});
}

TEST_F(RegisterSwitchesTest, ANewFaultTakesThePlaceOfTheOneThatAwaits) {
  Connect("every silence");
  Strike("next reply ERR12");
  EXPECT_EQ(Exchange(kStatus), Events{"ERR12"});
  EXPECT_EQ(Exchange(kStatus), Events{"321700"});
  Strike("next silence");
  Strike("no fault");
  EXPECT_EQ(Exchange(kStatus), Events{"321700"});
}

TEST_F(RegisterSwitchesTest, AnAwaitingFaultComesBeforeThoseOfTheCommandWhichStillCount) {
  Connect("on 3217 #2 reply ERR16\nnext reply ERR08");
  EXPECT_EQ(Exchange(kStatus), Events{"ERR08"});
  EXPECT_EQ(Exchange(kStatus), Events{"ERR16"});
}

TEST_F(RegisterSwitchesTest, TellsWhatAwaitsUntilACommandHasComeForIt) {
  Connect("");
  int calls = 0;
  link->SetFaultObserver([&] { ++calls; });
  EXPECT_FALSE(link->Awaiting());
  Strike("next link-error 3");
  ASSERT_TRUE(link->Awaiting());
  EXPECT_EQ(link->Awaiting()->number, 3);
  EXPECT_EQ(calls, 1);
  Send(kStatus);
  EXPECT_FALSE(link->Awaiting());
  EXPECT_EQ(calls, 2);
  Strike("every silence");
  Send(kStatus);
  EXPECT_TRUE(link->Awaiting());
  EXPECT_EQ(calls, 3);
}

TEST_F(RegisterSwitchesTest, WithoutPowerTheRegisterIsAbsentAndRemembers) {
  Connect("after 1000 power off\nafter 10000 power on");
  Exchange(bread);
  EXPECT_FALSE(link->PowerOn());
  EXPECT_FALSE(link->DevicePresent());
  EXPECT_EQ(Exchange(bread), Events());
  clock.Advance(9s);
  EXPECT_TRUE(link->PowerOn());
  EXPECT_TRUE(link->DevicePresent());
  EXPECT_EQ(Exchange(kPayment), Events{"103600"});
  EXPECT_EQ(device.Receipts().back().total, 150);
}

TEST_F(RegisterSwitchesTest, NothingIsKeyedInWithoutPower) {
  Connect("power off\nreceipt-open");
  EXPECT_FALSE(device.ReceiptOpen());
  Strike("power on");
  Strike("receipt-open");
  Strike("power off");
  Strike("receipt-paid");
  EXPECT_TRUE(device.ReceiptOpen());
}

TEST_F(RegisterSwitchesTest, WithoutItsCableTheRegisterIsAbsent) {
  Connect("cable out");
  EXPECT_FALSE(link->CableIn());
  EXPECT_FALSE(link->DevicePresent());
  EXPECT_EQ(Exchange(bread), Events());
  EXPECT_FALSE(device.ReceiptOpen());
  Strike("cable in");
  EXPECT_TRUE(link->DevicePresent());
  EXPECT_EQ(Exchange(bread), Events{"100300"});
}

TEST_F(RegisterSwitchesTest, WhatIsOnTheLineIsLostWithTheCableOrThePower) {
  for (const auto& [off, on] : {std::pair("cable out", "cable in"), std::pair("power off", "power on")}) {
    Connect("speed 1200");  // 50 ms for the command, 50 ms for its reply.
    events.clear();
    Send(kStatus);
    clock.Advance(20ms);
    Strike(off);
    Strike(on);
    clock.Advance(1s);
    Send(kStatus);
    clock.Advance(70ms);
    Strike(off);
    Strike(on);
    clock.Advance(1s);
    EXPECT_EQ(events, Events()) << off;
  }
}

TEST_F(RegisterSwitchesTest, ACommandCanPullTheCableItself) {
  Connect("on 1036 cable out");
  EXPECT_EQ(Exchange(bread), Events{"100300"});
  EXPECT_EQ(Exchange(kPayment), Events());
  EXPECT_TRUE(device.ReceiptOpen());
  EXPECT_FALSE(link->DevicePresent());
}

TEST_F(RegisterSwitchesTest, WithoutTheKeyNothingIsPrinted) {
  Connect("key off");
  EXPECT_FALSE(device.KeyOn());
  EXPECT_EQ(Exchange(bread), Events{"ERR17"});
  EXPECT_EQ(Exchange("300101"), Events{"ERR17"});
  EXPECT_EQ(Exchange(kStatus), Events{"321700"});
  EXPECT_EQ(paper.Text(), "");
  Strike("key on");
  EXPECT_EQ(Exchange(bread), Events{"100300"});
}

TEST_F(RegisterSwitchesTest, PaperThatIsOutStaysOutUntilNewPaperIsPutIn) {
  for (const auto& [words, code] :
       {std::pair("receipt-paper", "ERR02"), std::pair("journal-paper", "ERR01")}) {
    Connect(std::string(words) + " out");
    EXPECT_EQ(Exchange("106601UNO             "), Events{code});
    EXPECT_EQ(Exchange("114900"), Events{code});
    EXPECT_EQ(Exchange(kStatus), Events{code});
    EXPECT_EQ(paper.Text(), "");
    Strike(std::string(words) + " in");
    EXPECT_EQ(Exchange(kStatus), Events{code}) << "the restart prints what is held back";
    EXPECT_EQ(Exchange("114900"), Events{"114900"});
    EXPECT_EQ(paper.Text(), "UNO\n");
    EXPECT_EQ(Exchange(kStatus), Events{"321700"});
    paper = PaperRoll();
  }
}

TEST_F(RegisterSwitchesTest, PaperTakenOutAndPutInBetweenTwoCommandsNeedsNoRestart) {
  Connect("receipt-paper out");
  EXPECT_EQ(Exchange(kStatus), Events{"ERR02"});
  Strike("receipt-paper in");
  EXPECT_EQ(Exchange(kStatus), Events{"321700"});
  EXPECT_EQ(Exchange("106601UNO             "), Events{"106600"});
}

TEST_F(RegisterSwitchesTest, BothPapersCanBeOut) {
  Connect("receipt-paper out\njournal-paper out");
  EXPECT_EQ(Exchange(bread), Events{"ERR02"});
  Strike("receipt-paper in");
  EXPECT_EQ(Exchange("114900"), Events{"ERR01"});
  Strike("journal-paper in");
  EXPECT_EQ(Exchange("114900"), Events{"114900"});
  EXPECT_TRUE(device.ReceiptOpen());
}

TEST_F(RegisterSwitchesTest, APaperTakenOutOutlastsTheEndOfARoll) {
  Connect("paper-out journal\nreceipt-paper out");
  EXPECT_EQ(Exchange(bread), Events{"ERR02"});
  EXPECT_EQ(Exchange("114900"), Events{"ERR02"});
  Strike("receipt-paper in");
  EXPECT_EQ(Exchange("114900"), Events{"114900"});
}

TEST_F(RegisterSwitchesTest, PaperThatIsInStaysAsItIs) {
  Connect("paper-out receipt\njournal-paper in");
  EXPECT_EQ(Exchange(bread), Events{"ERR02"});
  Strike("receipt-paper in");
  EXPECT_EQ(Exchange(kStatus), Events{"ERR02"});
  EXPECT_EQ(Exchange("114900"), Events{"114900"});
}

TEST_F(RegisterSwitchesTest, TellsHowManyLinesAVoidedSlipHas) {
  Connect("");
  std::vector<std::size_t> voided;
  device.SetVoidObserver([&](std::size_t lines) { voided.push_back(lines); });
  Exchange("106601UNO             ");
  Exchange(bread);
  Exchange("102800");  // Heading of three lines, the item, the void, the end, the divider.
  Exchange("106300");
  Exchange("10640010RIGA");
  Exchange("102800");
  EXPECT_EQ(voided, (std::vector<std::size_t>{7, 8}));
}

}  // namespace
}  // namespace orvenza::test
