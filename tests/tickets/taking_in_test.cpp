#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/shop.h"
#include "tickets/waiting_tickets.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;
using Times = std::vector<std::int64_t>;

/// Another program has locked the ticket: it can be neither moved nor read.
void KeepOutOfReach(Shop& shop, const std::string& path) {
  for (const char* operation : {"Move", "Copy"}) {
    shop.files.FailAlways(operation, path, error_number::kPermissionDenied);
  }
}

TEST(TakingIn, MovesTheTicketThroughTheInProcessFolder) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  Lines whilePrinting;
  shop.link.SetObserver([&](LineEvent, const std::string& text) {
    if (text == "105101") whilePrinting = Waiting(shop);
  });
  shop.Run();
  EXPECT_EQ(whilePrinting, Lines{"inproces\\ticket.txt"});
  EXPECT_EQ(Waiting(shop), Lines{});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(TakingIn, MakesAReadOnlyTicketWritableBeforeItIsDeleted) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  const std::string source = shop.Spelled("data\\ticket.txt");
  shop.Hold(source);
  shop.files.Before("ClearAttributes", [&](const std::string& path) {
    if (path == source) shop.files.Heal();
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(Waiting(shop), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(TakingIn, ATicketThatVanishesBeforeItIsTakenInIsSkipped) {
  Shop shop;
  shop.Drop("a.txt", {"0;1;"});
  shop.Drop("b.txt", {"0;2;"});
  shop.files.Before("Move", [&](const std::string& path) {
    if (path.ends_with("a.txt")) shop.folder.Remove("data\\a.txt");
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105102"});
  EXPECT_EQ(shop.Err(), Lines{"Timer1 - 53 - File not found ( " + shop.Spelled("data\\a.txt )")});
}

TEST(TakingIn, ATicketThatVanishesAfterItsCopyIsPrinted) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.files.FailAlways("Move", "data\\ticket.txt", error_number::kPermissionDenied);
  bool vanished = false;
  shop.files.Before("Exists", [&](const std::string& path) {
    if (path != shop.Spelled("data\\ticket.txt")) return;
    vanished = shop.folder.Remove("data\\ticket.txt");
  });
  shop.Run();
  EXPECT_TRUE(vanished);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(TakingIn, CopiesATicketThatCannotBeMoved) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.files.FailAlways("Move", "ticket.txt", error_number::kPathFileAccess);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(Waiting(shop), Lines{});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(TakingIn, AFullDiskLeavesTheTicketUntilThereIsRoom) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Fill("inproces");
  Lines waiting;
  shop.After(1200ms, [&] {
    waiting = Waiting(shop);
    shop.files.Heal();
  });
  shop.Run();
  const std::string line = "Timer1 - 61 - Disk full ( " + shop.Spelled("data\\ticket.txt )");
  EXPECT_EQ(shop.Err(), (Lines{line, line}));
  EXPECT_EQ(waiting, Lines{"ticket.txt"});
  EXPECT_EQ(shop.SentAt("1051"), Times{1500});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(TakingIn, ASourceThatCannotBeRemovedIsPrintedOnlyOnce) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("data\\ticket.txt");
  shop.After(10s, [&] { shop.Drop("other.txt", {"0;2;"}); });
  shop.Run(60s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(Waiting(shop), Lines{"ticket.txt"});
  EXPECT_EQ(shop.Err(), Lines{"Timer1 - 70 - Permission denied ( " + shop.Spelled("data\\ticket.txt )")});
}

TEST(TakingIn, ASourceThatCannotBeRemovedGoesWhenItCan) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("data\\ticket.txt");
  shop.After(10s, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(Waiting(shop), Lines{});
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Err().size(), 1U);
}

TEST(TakingIn, ANewTicketOverASourceThatCouldNotBeRemovedIsPrinted) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("data\\ticket.txt");
  shop.After(10s, [&] { shop.Drop("ticket.txt", {"0;2;"}); });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
}

TEST(TakingIn, ANewTicketOfTheSameNameAndTimeIsPrintedOnceTheOlderOneHasGone) {
  Shop shop;
  DropAt(shop, "ticket.txt", 1, 1000);
  shop.Hold("data\\ticket.txt");
  shop.After(5s, [&] { shop.files.Heal(); });
  shop.After(10s, [&] { DropAt(shop, "ticket.txt", 2, 1000); });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
}

TEST(TakingIn, ANewTicketOfTheSameNameAndTimeIsPrintedHoweverTheOlderOneWent) {
  for (const bool removedByUs : {false, true}) {
    Shop shop;
    DropAt(shop, "ticket.txt", 1, 1000);
    shop.Hold("data\\ticket.txt");
    shop.After(5200ms, [&] {
      shop.files.Heal();
      if (!removedByUs) shop.folder.Remove("data\\ticket.txt");
    });
    // After the tick at 5.5 seconds, and before the next one if that tick has removed the older ticket.
    shop.After(removedByUs ? 5700ms : 6200ms, [&] { DropAt(shop, "ticket.txt", 2, 1000); });
    shop.Run();
    EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"})) << removedByUs;
  }
}

TEST(TakingIn, ANewTicketOfTheSameNameAndTimeIsPrintedThoughNoTickSawTheOlderOneGo) {
  Shop shop;
  DropAt(shop, "ticket.txt", 1, 1000);
  shop.Hold("data\\ticket.txt");
  shop.After(5200ms, [&] {
    shop.files.Heal();
    DropAt(shop, "ticket.txt", 2, 1000);
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(Waiting(shop), Lines{});
}

TEST(TakingIn, ASourceThatCouldNotBeRemovedGoesThoughItsCopyCouldNotBeReadAtOnce) {
  Shop shop;
  DropAt(shop, "ticket.txt", 1, 1000);
  shop.Hold("data\\ticket.txt");
  shop.files.FailAlways("OpenForReading", "inproces\\ticket.txt", error_number::kPermissionDenied);
  shop.After(2200ms, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(Waiting(shop), Lines{});
}

TEST(TakingIn, ATicketThatVanishesOnceItIsTakenInSendsNothing) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.files.Before("Exists", [&](const std::string&) { shop.folder.Remove("data\\inproces\\ticket.txt"); });
  shop.Run();
  EXPECT_EQ(shop.LogForTickets(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(TakingIn, APrintedSourceThatCouldNotBeRemovedDoesNotCountAsWaiting) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("data\\ticket.txt");
  shop.Answer("Chiusura Fiscale");
  shop.Answer("Sì");
  shop.After(10s, [&] { shop.UseMenu(MenuItem::kUtilities); });
  shop.Run();
  EXPECT_EQ(shop.DialogTexts(), (Lines{"", "Confermi la Richiesta di Chiusura Fiscale ?"}));
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "300101"}));
}

TEST(TakingIn, ANewerTicketDoesNotOvertakeOneThatIsHeldForAMoment) {
  Shop shop;
  DropAt(shop, "held.txt", 1, 1000);
  DropAt(shop, "b.txt", 2, 2000);
  KeepOutOfReach(shop, "data\\held.txt");
  shop.After(2200ms, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(shop.SentAt("105101"), Times{2500});
  EXPECT_EQ(shop.SentAt("105102"), Times{3000});
  const std::string line = "Timer1 - 70 - Permission denied ( " + shop.Spelled("data\\held.txt )");
  EXPECT_EQ(shop.Err(), Lines(4, line));
}

TEST(TakingIn, AFiscalClosureDoesNotOvertakeATicketThatIsHeldForAMoment) {
  Shop shop;
  shop.Drop("held.txt", {"0;1;"});
  KeepOutOfReach(shop, "data\\held.txt");
  for (const char* answer : {"Chiusura Fiscale", "Sì", "Sì"}) shop.Answer(answer);
  shop.After(600ms, [&] { shop.UseMenu(MenuItem::kUtilities); });
  shop.After(3200ms, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "300101"}));
}

TEST(TakingIn, ATicketThatCannotBeTakenInDoesNotHoldUpTheOthersForever) {
  Shop shop;
  DropAt(shop, "held.txt", 1, 1000);
  DropAt(shop, "b.txt", 2, 2000);
  KeepOutOfReach(shop, "data\\held.txt");
  shop.Run(30s);
  EXPECT_EQ(shop.SentAt("1051"), Times{5000});
  EXPECT_EQ(shop.SentForTickets(), Lines{"105102"});
  EXPECT_EQ(Waiting(shop), Lines{"held.txt"});
}

TEST(TakingIn, ATicketThatCannotBeTakenInIsTriedOnEveryTickAndRarelyLogged) {
  Shop shop;
  shop.Drop("held.txt", {"0;1;"});
  KeepOutOfReach(shop, "data\\held.txt");
  shop.After(30s, [&] { shop.files.Heal(); });
  shop.Run(5min);
  const std::string failure = "Timer1 - 70 - Permission denied ( " + shop.Spelled("data\\") + "held.txt )";
  EXPECT_EQ(shop.Err().size(), 11U);
  EXPECT_EQ(shop.Err().front(), failure);
  EXPECT_EQ(shop.Err().back(), "Errore cessato ( 59 volte ) : " + failure);
  EXPECT_EQ(shop.SentAt("105101"), Times{30000});
}

const std::string kClosureWaits =
    "Chiusura o rapporto in attesa : b.txt, prima va stampato lo scontrino held.txt";

TEST(TakingIn, NoClosureOrReportOvertakesATicketThatIsHeldForLong) {
  for (const char* report : {"21;", "22;", "32;3;1;"}) {
    Shop shop;
    DropAt(shop, "held.txt", 1, 1000);
    shop.Drop("b.txt", {"0;2;", report});
    shop.folder.SetModified("data\\b.txt", 2000);
    DropAt(shop, "c.txt", 3, 3000);
    KeepOutOfReach(shop, "data\\held.txt");
    shop.After(60200ms, [&] { shop.files.Heal(); });
    shop.Run(65s);
    EXPECT_EQ(shop.SentAt("105103"), Times{5000}) << report;
    EXPECT_EQ(shop.SentAt("105101"), Times{60500}) << report;
    EXPECT_EQ(shop.SentAt("105102"), Times{61000}) << report;
    EXPECT_EQ(shop.Err()[10], kClosureWaits) << report;
    EXPECT_EQ(shop.Err().size(), 10U + 1U) << "ten tries, and the closure";
  }
}

TEST(TakingIn, AClosureDoesNotWaitForAYoungerTicketThatIsHeld) {
  Shop shop;
  shop.Drop("closure.txt", {"21;"});
  shop.folder.SetModified("data\\closure.txt", 2000);
  KeepOutOfReach(shop, "data\\held.txt");
  KeepOutOfReach(shop, "data\\closure.txt");
  DropAt(shop, "held.txt", 1, 3000);
  shop.After(10s, [&] {
    shop.files.Heal();
    KeepOutOfReach(shop, "data\\held.txt");
  });
  shop.Run();
  EXPECT_EQ(shop.SentAt("3001").size(), 1U);
}

TEST(TakingIn, AClosureWaitsForATicketWhoseNameASettledFileHas) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  shop.Hold("inproces");
  shop.After(5s, [&] {
    DropAt(shop, "a.txt", 2, 2000);
    shop.Drop("b.txt", {"21;"});
  });
  shop.After(10200ms, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "300101"}));
}

TEST(TakingIn, ANewTicketIsNotTakenForAnEarlierOneThatCouldNotBeTakenIn) {
  Shop shop;
  DropAt(shop, "a.txt", 1, 1000);
  KeepOutOfReach(shop, "data\\a.txt");
  shop.After(8s, [&] {
    shop.files.Heal();
    shop.folder.Remove("data\\a.txt");
  });
  shop.After(10200ms, [&] { DropAt(shop, "a.txt", 2, 1000); });
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), Times{10500});
}

}  // namespace
}  // namespace orvenza::test
