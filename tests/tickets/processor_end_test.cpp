#include <gtest/gtest.h>

#include <string>

#include "support/shop.h"
#include "tickets/receipt_lines.h"
#include "tickets/ticket_processor.h"

// The program ends in the middle of a ticket: nothing that may have been completed is ever sent again.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const std::string kPortClosed = "Apertura Porta non Riuscita ! ( COM1 )";

TEST(EndInATicket, TheTicketIsCompletedAndArchivedFirst) {
  Shop shop("on 1003 late 3000");
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Answer("Sì");
  shop.After(1500ms, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.RunToItsEnd();
  EXPECT_EQ(shop.SentForTickets(), (Lines{kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.LogForTickets(),
            (Lines{"Start Scontrino", "Applicazione terminata dall'Operatore", "End Scontrino"}));
  EXPECT_EQ(shop.Log().back(), "End");
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

/// Runs a shop with a ticket of these lines. At a dialog the operator ends the program from the menu.
void EndFromTheDialog(Shop& shop, const Lines& lines) {
  shop.Drop("ticket.txt", lines);
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
}

TEST(EndInATicket, BeforeAnythingIsCompletedTheTicketWaitsForTheNextStart) {
  for (const char* script : {"on 1003 silence", "on 1003 lose-reply", "on 1003 reply ERR08",
                             "on 1003 absent 9", "on 1036 reply ERR08"}) {
    Shop shop(script);
    EndFromTheDialog(shop, {kCoffee, kPayment});
    EXPECT_EQ(shop.Names("data\\inproces"), Lines{"ticket.txt"}) << script;
    EXPECT_EQ(shop.Names("data\\abort"), Lines{}) << script;
    EXPECT_EQ(shop.Log().back(), "End") << script;
  }
}

TEST(EndInATicket, OnceAPaymentMayHaveBeenTakenTheTicketIsGivenUp) {
  for (const char* script :
       {"on 1036 silence", "on 1036 lose-reply", "on 1036 reply ERR01", "on 1036 reply ERR02",
        "on 1036 link-error 1", "on 1051 silence", "on 1051 reply ERR08", "on 1051 absent 9"}) {
    Shop shop(script);
    EndFromTheDialog(shop, {kCoffee, kPayment, "0;1;", "0;2;"});
    EXPECT_EQ(shop.Names("data\\inproces"), Lines{}) << script;
    EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"}) << script;
    EXPECT_EQ(shop.Err().back(), GivenUp(shop)) << script;
    EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "Applicazione terminata dall'Operatore"}))
        << script;
  }
}

TEST(EndInATicket, EveryRecordThatLeavesSomethingOnPaperCounts) {
  for (const char* record :
       {"2;1;100;", "5;0;1;;;100;", "14;100;1;1;;0;", "15;1;100;", "31;1;", "34;0;100;1;", "35;1;100;1;"}) {
    Shop shop("on 10 silence");
    EndFromTheDialog(shop, {record});
    EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"}) << record;
  }
}

TEST(EndInATicket, OtherRecordsDoNot) {
  for (const char* record : {"0;1;", "4;1;", "20;1;", "28;1;TESTO;", "29;1;", "30;1;1;TESTO;"}) {
    Shop shop("on 10 silence");
    EndFromTheDialog(shop, {record});
    EXPECT_EQ(shop.Names("data\\inproces"), Lines{"ticket.txt"}) << record;
  }
}

TEST(EndInATicket, APaymentThatWasRefusedChangesNothingInWhatWentBefore) {
  Shop shop("on 1036 #2 reply ERR11\non 1028 absent 9");
  EndFromTheDialog(shop, {kCoffee, kPayment, kPayment});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
}

TEST(EndInATicket, AReprintStartsThisOverToo) {
  Shop shop("on 1036 silence\non 1003 #2 silence");
  shop.Answer(kReprint);
  EndFromTheDialog(shop, {kCoffee, kPayment});
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"ticket.txt"});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{});
}

TEST(EndInATicket, WhereThePortDoesNotOpenAgainTheOperatorsChoiceStands) {
  const std::pair<std::string, const char*> folders[] = {
      {kPrinted, "storico"}, {kGiveUp, "data\\abort"}, {kReprint, "data\\inproces"}};
  for (const auto& [choice, folder] : folders) {
    Shop shop("on 1036 silence\non 1036 port-fails 2");
    shop.Drop("ticket.txt", {kCoffee, kPayment});
    for (const std::string& answer : {choice, std::string("Annulla"), std::string("Sì")}) shop.Answer(answer);
    shop.RunToItsEnd();
    EXPECT_EQ(shop.DialogTexts()[1], kPortClosed);
    EXPECT_EQ(shop.Names(folder).size(), 1U) << choice;
    EXPECT_EQ(
        shop.Names("storico").size() + shop.Names("data\\abort").size() + shop.Names("data\\inproces").size(),
        1U)
        << choice;
  }
}

/// Runs a shop whose port does not open after the closure; the operator gives up. Then the program is
/// restarted.
void RunTwiceGivingUpAfterTheClosure(Shop& shop) {
  shop.Answer("Annulla");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  shop.Run();
}

TEST(EndAfterAClosure, TheFileIsArchivedAndNotSentAgain) {
  Shop shop("on 3001 port-fails 1");
  shop.Drop("ticket.txt", {"21;"});
  RunTwiceGivingUpAfterTheClosure(shop);
  EXPECT_EQ(shop.SentForTickets(), Lines{"300101"});
  EXPECT_EQ(shop.device.FiscalClosures(), 1);
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
  EXPECT_EQ(shop.Err(), (Lines{kPortClosed, "Collegamento Annullato dall'Operatore"}));
}

TEST(EndAfterAClosure, EmptyLinesAfterItChangeNothing) {
  Shop shop("on 3001 port-fails 1");
  shop.DropBytes("ticket.txt", "21;\r\n\r\n\x1a");
  RunTwiceGivingUpAfterTheClosure(shop);
  EXPECT_EQ(shop.SentForTickets(), Lines{"300101"});
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
}

TEST(EndAfterAClosure, TheProgramEndsWithoutFurtherTickets) {
  Shop shop("on 3001 port-fails 1");
  shop.Drop("a.txt", {"21;"});
  shop.Drop("b.txt", {"0;1;"});
  shop.Answer("Annulla");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.SentForTickets(), Lines{"300101"});
  EXPECT_EQ(shop.Names("data"), Lines{"b.txt"});
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
}

TEST(EndAfterAClosure, AnOperatorWhoTriesAgainGoesOn) {
  Shop shop("on 3001 port-fails 2");
  shop.Drop("ticket.txt", {"21;", "0;1;"});
  shop.Answer("Riprova");
  shop.Answer("Riprova");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"300101", "105101"}));
  EXPECT_EQ(shop.DialogTexts(), (Lines{kPortClosed, kPortClosed}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(EndAfterAClosure, ATicketWithFurtherLinesIsGivenUp) {
  Shop shop("on 3001 port-fails 1");
  shop.Drop("ticket.txt", {"21;", "0;1;"});
  RunTwiceGivingUpAfterTheClosure(shop);
  EXPECT_EQ(shop.SentForTickets(), Lines{"300101"});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(shop.Err(), (Lines{kPortClosed, "Collegamento Annullato dall'Operatore", GivenUp(shop)}));
}

}  // namespace
}  // namespace orvenza::test
