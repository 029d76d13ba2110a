#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/shop.h"
#include "tickets/receipt_lines.h"
#include "tickets/ticket_processor.h"

// The consequences of the register's reply to a line. The fault occurs at the ticket's second line.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const std::string kNoReply = "Nessuna riposta dal Dispositivo !";
const std::string kErrorHeading = "Attenzione ! Errore ECR :";

/// A shop that has printed a ticket of three commands with these answers of the operator.
class PrintedShop : public Shop {
 public:
  PrintedShop(const std::string& script, const Lines& answers) : Shop(script) {
    Drop("ticket.txt", {"0;1;", "0;2;", "0;3;"});
    for (const std::string& answer : answers) Answer(answer);
    Run(3min);
  }

  bool Archived() const { return Names("storico") == Lines{"1.txt"} && Names("data\\abort").empty(); }
  bool Aborted() const {
    return Names("data\\abort") == Lines{"ticket.txt.abort.txt"} && Names("storico").empty();
  }
};

const Lines kAllSent = {"321701", "105101", "105102", "105103"};
const Lines kSentToTheTrouble = {"321701", "105101", "105102"};
const Lines kSentTwice = {"321701", "105101", "105102", "321701", "105101", "105102", "105103"};
/// The status is queried before the next line.
const Lines kSentWithStatus = {"321701", "105101", "105102", "321701", "105103"};

// Silence and link errors.

/// Each leaves the second line without a reply.
const char* const kLineTroubles[] = {"on 105102 silence", "on 105102 lose-reply", "on 105102 link-error 1",
                                     "on 105102 link-error 3"};

TEST(LineTrouble, IsShownWithTheThreeChoices) {
  for (const char* trouble : kLineTroubles) {
    const PrintedShop shop(trouble, {kGiveUp});
    ASSERT_EQ(shop.person.Shown().size(), 1U) << trouble;
    const ShownDialog& dialog = shop.person.Shown()[0];
    EXPECT_EQ(dialog.heading, kErrorHeading) << trouble;
    EXPECT_EQ(dialog.text, kNoReply) << trouble;
    EXPECT_EQ(dialog.options, (Lines{kPrinted, kReprint, kGiveUp})) << trouble;
  }
}

TEST(LineTrouble, PrintedFinishesTheFile) {
  for (const char* trouble : kLineTroubles) {
    const PrintedShop shop(trouble, {kPrinted});
    EXPECT_EQ(SentAfterStartUp(shop), kSentToTheTrouble) << trouble;
    EXPECT_EQ(shop.Err(), (Lines{kNoReply, kAnswered + kPrinted})) << trouble;
    EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"})) << trouble;
    EXPECT_TRUE(shop.Archived()) << trouble;
  }
}

TEST(LineTrouble, ReprintStartsAgainFromTheFirstLine) {
  for (const char* trouble : kLineTroubles) {
    const PrintedShop shop(trouble, {kReprint});
    EXPECT_EQ(SentAfterStartUp(shop), kSentTwice) << trouble;
    EXPECT_EQ(shop.Err(), (Lines{kNoReply, kAnswered + kReprint})) << trouble;
    EXPECT_TRUE(shop.Archived()) << trouble;
  }
}

TEST(LineTrouble, GivingUpAbortsTheTicket) {
  for (const char* trouble : kLineTroubles) {
    const PrintedShop shop(trouble, {kGiveUp});
    EXPECT_EQ(SentAfterStartUp(shop), kSentToTheTrouble) << trouble;
    EXPECT_EQ(shop.Err(), (Lines{kNoReply, kAnswered + kGiveUp})) << trouble;
    EXPECT_EQ(shop.LogForTickets(), Lines{"Start Scontrino"}) << trouble;
    EXPECT_TRUE(shop.Aborted()) << trouble;
  }
}

TEST(LineTrouble, ClosedWithoutAChoiceItMeetsTheLaterTestAsAnError) {
  for (const char* trouble : kLineTroubles) {
    const PrintedShop shop(trouble, {kClosed, kClosed});
    EXPECT_EQ(shop.DialogTexts(), (Lines{kNoReply, kNoReply})) << trouble;
    EXPECT_EQ(SentAfterStartUp(shop), kSentWithStatus) << trouble;
    EXPECT_EQ(shop.Err(), (Lines{kNoReply, kNoReply})) << trouble;
    EXPECT_TRUE(shop.Archived()) << trouble;
  }
}

TEST(LineTrouble, TheSecondQuestionDecidesLikeTheFirst) {
  EXPECT_EQ(SentAfterStartUp(PrintedShop("on 105102 silence", {kClosed, kPrinted})), kSentToTheTrouble);
  EXPECT_EQ(SentAfterStartUp(PrintedShop("on 105102 silence", {kClosed, kReprint})), kSentTwice);
  EXPECT_TRUE(PrintedShop("on 105102 link-error 1", {kClosed, kGiveUp}).Aborted());
}

TEST(LineTrouble, ThePortIsClosedForASecondWhateverTheAnswer) {
  const Lines rows[] = {{kPrinted}, {kReprint}, {kGiveUp}, {kClosed, kClosed}};
  for (const Lines& answers : rows) {
    Shop shop("on 105102 link-error 1");
    Lines port;
    shop.link.SetObserver([&](LineEvent event, const std::string& text) {
      if (event == LineEvent::kPort) port.push_back(text + " " + std::to_string(shop.clock.Uptime() / 1ms));
    });
    shop.Drop("ticket.txt", {"0;1;", "0;2;"});
    for (const std::string& answer : answers) shop.Answer(answer);
    shop.Run(5s);
    EXPECT_EQ(port, (Lines{"open 0", "closed 500", "open 1500", "closed 5000"})) << answers[0];
  }
}

TEST(LineTrouble, SilenceIsWaitedForFifteenSeconds) {
  Shop shop("on 105101 silence");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Answer(kReprint);
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), (std::vector<std::int64_t>{500, 500 + 15000 + 1000}));
}

TEST(LineTrouble, AReplyWithinFifteenSecondsIsOne) {
  const PrintedShop shop("on 105102 late 14900", {});
  EXPECT_EQ(SentAfterStartUp(shop), kAllSent);
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(LineTrouble, LinkError2CountsAsSuccess) {
  const PrintedShop shop("on 105102 link-error 2", {});
  EXPECT_EQ(SentAfterStartUp(shop), kAllSent);
  EXPECT_EQ(shop.Err(), Lines{});
  EXPECT_EQ(shop.DialogTexts(), Lines{});
  EXPECT_TRUE(shop.Archived());
}

TEST(Reply, AnythingThatIsNoErrorCountsAsSuccess) {
  for (const std::string reply : {"105100", "9999", "x", "ERX08", " ERR08", "ERR-2 and more"}) {
    const PrintedShop shop("on 105102 reply \"" + reply + "\"", {});
    EXPECT_EQ(SentAfterStartUp(shop), kAllSent) << reply;
    EXPECT_EQ(shop.Err(), Lines{}) << reply;
  }
}

// Device errors.

TEST(DeviceError, IsShownWithItsTextAndTheThreeChoices) {
  const PrintedShop shop("on 105102 reply ERR08", {kGiveUp});
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  EXPECT_EQ(shop.person.Shown()[0].heading, kErrorHeading);
  EXPECT_EQ(shop.person.Shown()[0].text, "08-Tasto Errato");
  EXPECT_EQ(shop.person.Shown()[0].options, (Lines{kPrinted, kReprint, kGiveUp}));
}

TEST(DeviceError, TheOperatorDecides) {
  const std::string logged = "ECR Error : 08-Tasto Errato";
  const PrintedShop printed("on 105102 reply ERR08", {kPrinted});
  EXPECT_EQ(SentAfterStartUp(printed), kSentToTheTrouble);
  EXPECT_EQ(printed.Err(), (Lines{logged, kAnswered + kPrinted}));
  EXPECT_TRUE(printed.Archived());

  const PrintedShop reprinted("on 105102 reply ERR08", {kReprint});
  EXPECT_EQ(SentAfterStartUp(reprinted), kSentTwice);
  EXPECT_EQ(reprinted.Err(), (Lines{logged, kAnswered + kReprint}));
  EXPECT_TRUE(reprinted.Archived());

  const PrintedShop givenUp("on 105102 reply ERR08", {kGiveUp});
  EXPECT_EQ(SentAfterStartUp(givenUp), kSentToTheTrouble);
  EXPECT_EQ(givenUp.Err(), (Lines{logged, kAnswered + kGiveUp}));
  EXPECT_TRUE(givenUp.Aborted());
}

TEST(DeviceError, LeavesThePortOpen) {
  const PrintedShop shop("on 105102 reply ERR08", {kReprint});
  const auto& set = shop.link.Settings();
  EXPECT_EQ(std::count(set.begin(), set.end(), "PortOpen 0"), 1) << "at the end of the program";
}

TEST(DeviceError, WithoutAChoiceTheNextLineFollowsWhereNoReceiptIsOpen) {
  const PrintedShop shop("on 105102 reply ERR08", {kClosed});
  EXPECT_EQ(SentAfterStartUp(shop), kSentWithStatus);
  EXPECT_TRUE(shop.Archived());
}

TEST(DeviceError, WithoutAChoiceTheNextLineFollowsWhereTheStatusCannotBeRead) {
  const PrintedShop shop("on 105102 reply ERR08\non 3217 #3 x10 reply ERR09", {kClosed});
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103"}));
  EXPECT_EQ(shop.SentAt("3217").size(), 12U);
  EXPECT_EQ(shop.Err().back(), "Impossibile leggere stato Cash !");
  EXPECT_TRUE(shop.Archived());
}

TEST(DeviceError, WithoutAChoiceAnOpenReceiptIsVoidedAndPrintedAgain) {
  Shop shop("on 1036 reply ERR08");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Answer(kClosed);
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", kCoffeeCommand, kPaymentCommand, "321701", "102800",
                                           "321701", kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Err(), (Lines{"ECR Error : 08-Tasto Errato", "Ripresa da Fine Carta, annullo Totale"}));
}

TEST(DeviceError, ReprintVoidsTheOpenReceiptFirst) {
  Shop shop("on 1036 reply ERR08");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Answer(kReprint);
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", kCoffeeCommand, kPaymentCommand, "321701", "102800",
                                           "321701", kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Err(),
            (Lines{"ECR Error : 08-Tasto Errato", kAnswered + kReprint, "Annullamento scontrino in corso"}));
  EXPECT_EQ(shop.device.DailyTotal(), 100);
}

TEST(DeviceError, ASequenceErrorVoidsTheReceiptAndTheNextLineFollows) {
  const PrintedShop shop("on 105102 reply ERR11\non 1028 reply 102800", {});
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", "105101", "105102", "102800", "105103"}));
  EXPECT_EQ(shop.Err(), (Lines{"11-Sequenza Errata", "Annullamento scontrino in corso"}));
  EXPECT_EQ(shop.DialogTexts(), Lines{});
  EXPECT_TRUE(shop.Archived());
}

TEST(DeviceError, ALineThatTheRegisterCallsInvalidIsNamed) {
  const PrintedShop shop("on 105102 reply ERR**", {kGiveUp});
  EXPECT_EQ(SentAfterStartUp(shop), kSentToTheTrouble);
  EXPECT_EQ(shop.Err(), (Lines{"Riga non valida : 0;2;", kAnswered + kGiveUp}));
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  EXPECT_EQ(shop.person.Shown()[0].heading, "Riga non valida : 0;2;");
  EXPECT_EQ(shop.person.Shown()[0].text, "Riga scontrino non valida !");
  EXPECT_EQ(shop.person.Shown()[0].options, (Lines{kPrinted, kReprint, kGiveUp}));
}

TEST(DeviceError, ACodeOutsideTheTableAsksTheOperatorToo) {
  const PrintedShop shop("on 105102 reply ERR77", {kGiveUp});
  EXPECT_EQ(shop.Err(), (Lines{"DecodeDeviceError - 9 - Subscript out of range ( EcrErrorText 77 )",
                               "ECR Error : ", kAnswered + kGiveUp}));
  EXPECT_TRUE(shop.Aborted());
}

TEST(DeviceError, AnErrorThatCannotEvenBeShownAbortsTheTicket) {
  Shop shop("on 105102 reply ERR08");
  shop.Drop("ticket.txt", {"0;1;", "0;2;", "0;3;"});
  shop.person.SetObserver(
      [](const ShownDialog&, std::string_view) { throw std::runtime_error("no screen"); });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"})) << "a receipt does not go on without a line";
  EXPECT_EQ(shop.Err(), (Lines{"ECR Error : 08-Tasto Errato", "Trasmissione 51 - no screen", GivenUp(shop)}));
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
}

}  // namespace
}  // namespace orvenza::test
