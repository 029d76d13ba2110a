#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/shop.h"
#include "tickets/receipt_lines.h"
#include "tickets/ticket_processor.h"

// Before the first line: closing a receipt left open; and what happens to the file itself.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const std::string kVoiding = "Annullamento scontrino in corso";
const std::string kVoidFailed = "Impossibile inviare ALL VOID !";
const std::string kQuestion =
    "Impossibile annullare lo scontrino in corso !\r\nSi desidera chiudere automaticamente lo scontrino ?";

/// Drops a ticket that leaves its receipt open, then one with a single command.
void DropAfterAnOpenReceipt(Shop& shop) {
  shop.Drop("a.txt", {kCoffee});
  shop.Drop("b.txt", {"0;1;"});
}

TEST(StartOfATicket, AsksForTheStatusOnceWhenNoReceiptIsOpen) {
  Shop shop;
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
  EXPECT_EQ(shop.Err(), Lines{});
  ASSERT_EQ(shop.device.Receipts().size(), 1U);
  EXPECT_EQ(shop.device.Receipts()[0].total, 100);
}

TEST(StartOfATicket, VoidsAReceiptLeftOpen) {
  Shop shop;
  DropAfterAnOpenReceipt(shop);
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop),
            (Lines{"321701", kCoffeeCommand, "321701", "102800", "321701", "105101"}));
  EXPECT_EQ(shop.Err(), Lines{kVoiding});
  EXPECT_EQ(shop.DialogTexts(), Lines{});
  EXPECT_TRUE(shop.device.Receipts().at(0).voided);
}

TEST(StartOfATicket, TriesTheVoidThreeTimesWithoutAQuestion) {
  Shop shop("on 1028 x8 reply ERR08");
  DropAfterAnOpenReceipt(shop);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{kCoffeeCommand, "102800", "102808", "102808", "102808", "102800",
                                          "102808", "102808", "102808", "102800", "105101"}));
  EXPECT_EQ(shop.Err(), (Lines{kVoiding, kVoidFailed, kVoiding, kVoidFailed, kVoiding}));
  EXPECT_EQ(shop.DialogTexts(), Lines{});
}

TEST(StartOfATicket, AsksWhetherToCloseTheReceiptAfterThreeVoidsThatFailed) {
  Shop shop("on 1028 x* reply ERR08");
  DropAfterAnOpenReceipt(shop);
  shop.Answer("Sì");
  shop.Run();
  EXPECT_EQ(shop.Err(), (Lines{kVoiding, kVoidFailed, kVoiding, kVoidFailed, kVoiding, kVoidFailed}));
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  EXPECT_EQ(shop.person.Shown()[0].text, kQuestion);
  EXPECT_EQ(shop.person.Shown()[0].caption, "Orvenza - Attenzione !");
  EXPECT_EQ(shop.person.Shown()[0].icon, MessageIcon::kExclamation);
  EXPECT_EQ(shop.person.Shown()[0].buttons, (Lines{"Sì", "No"}));
}

TEST(StartOfATicket, ClosesTheReceiptOnYes) {
  Shop shop("on 1028 x* reply ERR08");
  DropAfterAnOpenReceipt(shop);
  shop.Answer("Sì");
  shop.Run();
  const Lines sent = SentAfterStartUp(shop);
  EXPECT_EQ(Lines(sent.end() - 3, sent.end()), (Lines{"103608000000000", "321701", "105101"}));
  EXPECT_FALSE(shop.device.Receipts().at(0).voided);
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt"}));
}

TEST(StartOfATicket, TheClosingPaymentCarriesTheLastErrorOfTheVoid) {
  const std::pair<std::string, std::string> payments[] = {
      {"on 1028 x* reply ERR08", "103608000000000"},
      {"on 1028 x* reply ERR1217", "103612000000000"},
      {"on 1028 x* link-error 3", "1036-3000000000"},
      {"on 1028 x* silence", "103600000000000"},
  };
  for (const auto& [script, payment] : payments) {
    Shop shop(script + "\non 1036 reply 103600\non 3217 #6 reply 321700");
    DropAfterAnOpenReceipt(shop);
    shop.Answer("Sì");
    shop.Run(5min);
    const Lines sent = shop.SentForTickets();
    ASSERT_GE(sent.size(), 2U) << script;
    EXPECT_EQ(*(sent.end() - 2), payment) << script;
    EXPECT_EQ(sent.back(), "105101") << script;
  }
}

TEST(StartOfATicket, OnNoTriesThreeMoreVoidsAndAsksAgain) {
  for (const std::string no : {"No", "close"}) {
    Shop shop("on 1028 x* reply ERR08");
    DropAfterAnOpenReceipt(shop);
    shop.Answer(no);
    shop.Answer("Sì");
    shop.Run(2min);
    EXPECT_EQ(shop.DialogTexts(), (Lines{kQuestion, kQuestion})) << no;
    EXPECT_EQ(shop.SentAt("1028").size(), 24U) << no;
    EXPECT_EQ(shop.SentAt("1036").size(), 1U) << no;
    EXPECT_EQ(shop.SentForTickets().back(), "105101") << no;
  }
}

TEST(StartOfATicket, AsksAlsoAfterTenVoidsThatWereAcceptedInVain) {
  Shop shop("on 1028 x* reply 102800");
  DropAfterAnOpenReceipt(shop);
  shop.Answer("No");
  shop.Answer("Sì");
  shop.Run(2min);
  EXPECT_EQ(shop.DialogTexts(), (Lines{kQuestion, kQuestion}));
  EXPECT_EQ(shop.SentAt("1028").size(), 20U);
  EXPECT_EQ(shop.SentForTickets().at(21), "103600000000000");
  EXPECT_EQ(shop.SentForTickets().back(), "105101");
}

TEST(StartOfATicket, TheClosingPaymentWaitsForTheRegister) {
  Shop shop("on 1028 x* reply ERR08\non 1028 #12 absent 4");
  DropAfterAnOpenReceipt(shop);
  for (const std::string answer : {"Sì", "Ok", "Ok", "Ok", "Ok"}) shop.Answer(answer);
  std::size_t dialogsBefore = 0;
  shop.link.SetObserver([&](LineEvent, const std::string& text) {
    if (text.starts_with("1036")) dialogsBefore = shop.person.Shown().size();
  });
  shop.Run(2min);
  const std::string absent = "Dispositivo Spento o Non Collegato !";
  EXPECT_EQ(shop.DialogTexts(), (Lines{kQuestion, absent, absent, absent, absent}));
  EXPECT_EQ(dialogsBefore, 5U) << "the payment is sent after them all";
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt"}));
}

TEST(StartOfATicket, AQuestionThatCannotBeShownLeavesTheTicketForTheNextTick) {
  Shop shop("on 1028 x12 reply ERR08");
  DropAfterAnOpenReceipt(shop);
  shop.person.SetObserver(
      [](const ShownDialog&, std::string_view) { throw std::runtime_error("no screen"); });
  shop.Run();
  EXPECT_EQ(shop.Err(), (Lines{kVoiding, kVoidFailed, kVoiding, kVoidFailed, kVoiding, kVoidFailed,
                               "Trasmissione 51 - no screen", kVoiding}));
  EXPECT_EQ(shop.SentForTickets().back(), "105101");
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt"}));
}

TEST(StartOfATicket, TheProgramCanBeEndedFromTheQuestionAndTheTicketWaits) {
  Shop shop("on 1028 x* reply ERR08");
  DropAfterAnOpenReceipt(shop);
  shop.Answer("menu Esci");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Log().back(), "End");
  EXPECT_EQ(shop.SentAt("1051").size(), 0U);
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"b.txt"});
}

TEST(StartOfATicket, TheProgramEndsBetweenVoidsThatFail) {
  Shop shop("on 1028 x* reply ERR08");
  DropAfterAnOpenReceipt(shop);
  shop.Answer("Sì");
  shop.After(1100ms, [&] { shop.UseMenu(MenuItem::kExit); });
  shop.RunToItsEnd();
  EXPECT_EQ(shop.SentAt("1028").size(), 1U);
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"b.txt"});
}

TEST(TicketFile, OneOfEmptyLinesSendsNothingAndIsArchived) {
  for (const std::string content : {"", "\r\n", "\r\n\r\n\n\r", "   \r\n\t\r\n \x1a"}) {
    Shop shop;
    shop.DropBytes("ticket.txt", content);
    shop.Run();
    EXPECT_EQ(SentAfterStartUp(shop), Lines{"321701"}) << content;
    EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"})) << content;
    EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"}) << content;
    EXPECT_EQ(shop.Err(), Lines{}) << content;
  }
}

TEST(TicketFile, EmptyLinesBetweenRecordsAreSkipped) {
  Shop shop;
  shop.DropBytes("ticket.txt", "\n\n0;1;\r\n \r\n0;2;\r\r0;3;");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103"}));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(TicketFile, OneThatVanishesEndsInSilence) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.link.SetObserver([&](LineEvent, const std::string& text) {
    if (text == "321701") shop.folder.Remove("data\\inproces\\ticket.txt");
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.LogForTickets(), Lines{"Start Scontrino"});
  EXPECT_EQ(shop.Err(), Lines{});
  EXPECT_EQ(shop.Names("storico"), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{});
}

TEST(TicketFile, OneThatCannotBeOpenedStaysAndIsTriedOnTheNextTick) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.files.FailAlways("OpenForReading", "inproces", error_number::kPermissionDenied);
  Lines inProcess;
  shop.After(1200ms, [&] {
    inProcess = shop.Names("data\\inproces");
    shop.files.Heal();
  });
  shop.Run();
  const std::string line =
      "Trasmissione 70 - Permission denied ( " + shop.Spelled("data\\inproces\\ticket.txt )");
  EXPECT_EQ(shop.Err(), (Lines{line, line}));
  EXPECT_EQ(inProcess, Lines{"ticket.txt"});
  EXPECT_EQ(shop.SentAt("1051"), std::vector<std::int64_t>{1500});
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(TicketFile, OneThatCannotBeReadToItsEndIsNotBegun) {
  Shop shop;
  shop.Drop("ticket.txt", {kCoffee, kPayment});
  shop.After(100ms, [&] { shop.files.FailReadAfter(kCoffee.size() + 3, error_number::kDeviceError); });
  shop.After(700ms, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(SentAfterStartUp(shop), (Lines{"321701", kCoffeeCommand, kPaymentCommand}));
  EXPECT_EQ(shop.Err(),
            Lines{"Trasmissione 57 - Device I/O error ( " + shop.Spelled("data\\inproces\\ticket.txt )")});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(shop.device.Receipts().size(), 1U);
}

TEST(TicketFile, IsReadAgainForEachPrinting) {
  Shop shop("on 105102 reply ERR08");
  shop.Drop("ticket.txt", {"0;1;", "0;2;"});
  shop.Answer(kReprint);
  shop.person.SetObserver([&](const ShownDialog&, std::string_view) {
    shop.folder.Write("data\\inproces\\ticket.txt", "0;3;\r\n");
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103"}));
}

}  // namespace
}  // namespace orvenza::test
