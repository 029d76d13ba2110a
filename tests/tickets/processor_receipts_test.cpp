#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "support/shop.h"
#include "tickets/receipt_lines.h"
#include "tickets/ticket_processor.h"

// Receipts that are too long, and paper-out.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const std::string kSplitLogged = "Scontrino diviso perchè troppo lungo !";
const std::string kTooLong = "23-Chiudi Scontrino";
const std::string kSplitPayment = "103601000000000";

/// A shop with the default separator, the character 127.
class DefaultShop : public Shop {
 public:
  explicit DefaultShop(const std::string& script) : Shop(script) {
    Configure("General", "Separator (ascii,max 127)", "127");
  }

  /// Drops a ticket written with ";".
  void DropTicket(Lines lines) {
    for (std::string& line : lines) std::replace(line.begin(), line.end(), ';', '\x7f');
    Drop("ticket.txt", lines);
  }
};

/// An item line in the error log's form.
std::string Quoted(const std::string& description) { return ItemLineOf(description, '\x7f'); }

TEST(ReceiptSplit, ClosesTheReceiptAndSendsTheRejectedLineAgain) {
  DefaultShop shop("capacity 2");
  shop.DropTicket({ItemLineOf("A"), ItemLineOf("B"), ItemLineOf("C"), kPayment});
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", ItemCommand("A"), ItemCommand("B"), ItemCommand("C"),
                                           kSplitPayment, ItemCommand("C"), kPaymentCommand}));
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", kSplitLogged, "End Scontrino"}));
  EXPECT_EQ(shop.Err(), Lines{"Riga non valida : " + Quoted("C")});
  EXPECT_EQ(shop.DialogTexts(), Lines{});
  ASSERT_EQ(shop.device.Receipts().size(), 2U);
  EXPECT_EQ(shop.device.Receipts()[0].total, 200);
  EXPECT_EQ(shop.device.Receipts()[1].total, 100);
}

TEST(ReceiptSplit, HappensAsOftenAsTheReceiptIsFull) {
  DefaultShop shop("capacity 1");
  shop.DropTicket({ItemLineOf("A"), ItemLineOf("B"), ItemLineOf("C"), kPayment});
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(),
            (Lines{ItemCommand("A"), ItemCommand("B"), kSplitPayment, ItemCommand("B"), ItemCommand("C"),
                   kSplitPayment, ItemCommand("C"), kPaymentCommand}));
  EXPECT_EQ(shop.device.DailyReceipts(), 3);
  EXPECT_EQ(shop.device.DailyTotal(), 300);
}

TEST(ReceiptSplit, LooksAtCharacters6And7Only) {
  DefaultShop shop("on 105102 reply ERR0523\non 1036 reply 103600");
  shop.DropTicket({"0;1;", "0;2;", "0;3;"});
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", kSplitPayment, "105102", "105103"}));
}

TEST(ReceiptSplit, ACode23InItsUsualPlaceAsksTheOperator) {
  DefaultShop shop("on 105102 reply ERR23");
  shop.DropTicket({"0;1;", "0;2;", "0;3;"});
  shop.Answer(kGiveUp);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(shop.DialogTexts(), Lines{kTooLong});
}

TEST(ReceiptSplit, ALineThatAFreshReceiptRefusesAgainGoesToTheOperator) {
  DefaultShop shop("on 1003 #2 x2 reply ERR2323");
  shop.DropTicket({ItemLineOf("A"), ItemLineOf("B"), ItemLineOf("C"), kPayment});
  shop.Answer(kGiveUp);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(),
            (Lines{ItemCommand("A"), ItemCommand("B"), kSplitPayment, ItemCommand("B")}));
  EXPECT_EQ(shop.Err(),
            (Lines{"Riga non valida : " + Quoted("B"), "ECR Error : " + kTooLong, kAnswered + kGiveUp}));
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
}

TEST(ReceiptSplit, AClosingPaymentThatIsRefusedGoesToTheOperator) {
  DefaultShop shop("capacity 1\non 1036 reply ERR2323");
  shop.DropTicket({ItemLineOf("A"), ItemLineOf("B"), kPayment});
  shop.Answer(kGiveUp);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{ItemCommand("A"), ItemCommand("B"), kSplitPayment}));
  EXPECT_EQ(shop.DialogTexts(), Lines{kTooLong});
}

TEST(ReceiptSplit, AReprintForgetsTheLineThatWasToBeSentAgain) {
  DefaultShop shop("capacity 1\non 1036 #1 reply ERR08");
  shop.DropTicket({ItemLineOf("A"), ItemLineOf("B")});
  shop.Answer(kReprint);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(),
            (Lines{ItemCommand("A"), ItemCommand("B"), kSplitPayment, "102800", ItemCommand("A"),
                   ItemCommand("B"), kSplitPayment, ItemCommand("B")}));
}

TEST(ReceiptSplit, WithAnotherSeparatorTheSplitLineIsInvalid) {
  for (const std::string& answer : {kGiveUp, kClosed}) {
    Shop shop("capacity 1");
    shop.Drop("ticket.txt", {ItemLineOf("A"), ItemLineOf("B"), kPayment});
    shop.Answer(answer);
    shop.Run();
    const Lines err = shop.Err();
    EXPECT_EQ(shop.SentForTickets(), (Lines{ItemCommand("A"), ItemCommand("B")})) << answer;
    ASSERT_GE(err.size(), 2U);
    EXPECT_EQ(err[0], "Riga non valida : " + ItemLineOf("B"));
    EXPECT_EQ(err[1],
              "Riga non valida : 2\x7f"
              "1\x7f"
              "0" +
                  std::string(8, '\x7f'));
    EXPECT_EQ(shop.DialogTexts(), Lines{"Riga scontrino non valida !"}) << answer;
    EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"}) << answer;
  }
}

// Paper out.

TEST(PaperOut, OfTheJournalRestartsAndPrintsTheOpenReceiptAgainOnce) {
  Shop shop("on 1003 paper-out journal");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Answer("Ok");
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", kCoffeeCommand, "114900", "321701", "321701", "102800",
                                           "321701", kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Err(), (Lines{"Carta Giornale Esaurita !", "Ripresa da Fine Carta, annullo Totale"}));
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "Start Scontrino", "End Scontrino"}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  ASSERT_EQ(shop.device.Receipts().size(), 2U);
  EXPECT_TRUE(shop.device.Receipts()[0].voided);
  EXPECT_EQ(shop.device.Receipts()[1].total, 100);
}

TEST(PaperOut, ShowsAFormWithoutChoices) {
  const std::string papers[][3] = {
      {"journal", "Attenzione ! Carta Giornale Esaurita !", "Carta Giornale Esaurita !"},
      {"receipt", "Attenzione ! Carta Scontrino Esaurita !", "Carta Scontrino Esaurita !"}};
  for (const auto& [paper, heading, logged] : papers) {
    Shop shop("on 1036 paper-out " + paper);
    shop.Drop("ticket.txt", {kCoffee, kPayment});
    shop.Answer("Ok");
    shop.Run();
    ASSERT_EQ(shop.person.Shown().size(), 1U);
    EXPECT_EQ(shop.person.Shown()[0].heading, heading);
    EXPECT_EQ(shop.person.Shown()[0].text, "Ripristinare la carta e confermare");
    EXPECT_EQ(shop.person.Shown()[0].options, Lines{});
    EXPECT_EQ(shop.person.Shown()[0].buttons, Lines{"&Ok"});
    EXPECT_EQ(shop.Err(), Lines{logged});
  }
}

TEST(PaperOut, AReceiptThatWasClosedIsNotPrintedAgain) {
  Shop shop("on 1036 paper-out receipt");
  shop.Drop("ticket.txt", {kCoffee, kPayment, "0;1;"});
  shop.Answer("Ok");
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop),
            (Lines{"321701", kCoffeeCommand, kPaymentCommand, "114900", "321701", "321701", "105101"}));
  EXPECT_EQ(shop.device.DailyTotal(), 100);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(PaperOut, TheRestartFollowsTheOperatorsOk) {
  Shop shop("on 1036 paper-out receipt");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.person.Answer("Ok", 2min);
  shop.Run(5min);
  EXPECT_EQ(shop.SentAt("1149"), std::vector<std::int64_t>{500 + 120000});
}

TEST(PaperOut, AVoidThatFailsRestartsTheTicketAnyway) {
  Shop shop("on 1003 paper-out journal\non 1028 x4 reply ERR08");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Answer("Ok");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{kCoffeeCommand, "114900", "102800", "102808", "102808", "102808",
                                          "102800", kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Err(), (Lines{"Carta Giornale Esaurita !", "Ripresa da Fine Carta, annullo Totale",
                               "Impossibile inviare ALL VOID !", "Annullamento scontrino in corso"}));
  EXPECT_EQ(shop.SentAt("3217").at(4), shop.SentAt("1028").at(3)) << "at once";
  EXPECT_EQ(shop.device.DailyTotal(), 100);
}

TEST(PaperOut, PausesBeforeThePrintingStartsAgain) {
  Shop shop("on 1003 paper-out journal");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Answer("Ok");
  shop.Run();
  const std::int64_t voided = shop.SentAt("1028").at(0);
  EXPECT_EQ(shop.SentAt("3217").back(), voided + 1000 + 300);
}

}  // namespace
}  // namespace orvenza::test
