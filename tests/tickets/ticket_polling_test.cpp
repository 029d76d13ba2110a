#include "tickets/ticket_polling.h"

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

// Order.

TEST(Polling, TakesTheOldestTicketFirstWhateverTheNames) {
  Shop shop;
  DropAt(shop, "a.txt", 3, 3000);
  DropAt(shop, "b.txt", 1, 1000);
  DropAt(shop, "c.txt", 2, 2000);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103"}));
  EXPECT_EQ(shop.folder.Read("storico\\1.txt"), "0;1;\r\n");
  EXPECT_EQ(shop.folder.Read("storico\\3.txt"), "0;3;\r\n");
}

TEST(Polling, TakesTicketsOfOneSecondByNameWithoutLetterCase) {
  Shop shop;
  DropAt(shop, "D.txt", 4, 1000);
  DropAt(shop, "c.txt", 3, 1000);
  DropAt(shop, "a.txt", 1, 1000);
  DropAt(shop, "B.TXT", 2, 1000);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103", "105104"}));
}

TEST(Polling, TakesAFiscalClosureAfterTheTicketsOfItsSecond) {
  Shop shop;
  for (const char* answer : {"Chiusura Fiscale", "Sì", "Sì"}) shop.Answer(answer);
  shop.After(700ms, [&] {
    int number = 0;
    for (const char* name : {"_.txt", "a.txt", "~.txt", "\u00E8.txt", "Z9.txt", "zebra.txt"})
      DropAt(shop, name, ++number, 1000);
    shop.UseMenu(MenuItem::kUtilities);
    shop.folder.SetModified("data\\zzzzzzzzzzzzzzzz.txt", 1000);
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(),
            (Lines{"105101", "105102", "105103", "105104", "105105", "105106", "300101"}));
}

TEST(Polling, TakesAFiscalClosureAfterTicketsOfALaterTime) {
  Shop shop;
  for (const char* answer : {"Chiusura Fiscale", "Sì", "Sì"}) shop.Answer(answer);
  shop.After(700ms, [&] {
    DropAt(shop, "a.txt", 1, 5'000'000'000);
    DropAt(shop, "Zebra.txt", 2, 5'000'000'060);
    shop.UseMenu(MenuItem::kUtilities);
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "300101"}));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(Polling, TakesNumbersInNamesByTheirValue) {
  Shop shop;
  int number = 0;
  for (const char* name :
       {"t.txt", "t2.txt", "T9.txt", "t010.txt", "t10a.txt", "t11.txt", "u1-2.txt", "u1-10.txt",
        "u20261121071559123456_9.txt", "u202611210715591234569.txt", "u2026112107155912345610.txt"}) {
    DropAt(shop, name, ++number, 1000);
  }
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103", "105104", "105105", "105106",
                                          "105107", "105108", "105109", "105110", "105111"}));
}

TEST(Polling, MakesNoTicketsOfTheProgramsOwnFiles) {
  const std::pair<const char*, Lines> kOwn[] = {
      {"*.txt", {"command.txt", "Log.txt", "ERR.TXT", "error.txt"}},
      {"*.bak", {"Log.Bak", "Err.Bak", "error.Bak"}},
  };
  for (const auto& [mask, names] : kOwn) {
    Shop shop;
    shop.Configure("Database", "TicketFiles", shop.folder.Path(mask));
    for (const std::string& name : names) shop.folder.Write(name, "STOP\r\n");
    shop.folder.Write(std::string("a") + (mask + 1), "0;1;\r\n");
    shop.Run();
    EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
    EXPECT_EQ(shop.Names("abort"), Lines{});
  }
}

TEST(Polling, TakesNamesOfTheSameNumberInTheOrderOfTheirCharacters) {
  Shop shop;
  DropAt(shop, "7.txt", 2, 1000);
  DropAt(shop, "07.txt", 1, 1000);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
}

TEST(Polling, TakesWhatAnEarlierRunLeftBeforeAnyNewTicket) {
  Shop shop;
  DropAt(shop, "a.txt", 3, 1000);
  LeaveInProcess(shop, "z.txt", 2, 3000);
  LeaveInProcess(shop, "y.txt", 1, 2000);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103"}));
  EXPECT_EQ(shop.SentAt("105101"), Times{500}) << "on the first tick";
}

TEST(Polling, TakesOneTicketATick) {
  Shop shop;
  shop.Drop("a.txt", {"0;1;"});
  shop.Drop("b.txt", {"0;2;"});
  shop.After(1700ms, [&] { shop.Drop("c.txt", {"0;3;"}); });
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), (Times{500, 1000, 2000}));
}

TEST(Polling, TheNextTickComesHalfASecondAfterATicketHoweverLongThatTook) {
  Shop shop("on 1051 late 4200");
  shop.Drop("a.txt", {"0;1;"});
  shop.Drop("b.txt", {"0;2;"});
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), (Times{500, 5200}));
}

TEST(Polling, SendsNothingWhileThereIsNoTicket) {
  Shop shop;
  shop.Run(1min);
  EXPECT_EQ(shop.Sent(), (Lines{"321700", "199900"})) << "the queries of start-up";
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(Polling, TakesOnlyFilesOfTheMask) {
  Shop shop;
  shop.Configure("Database", "TicketFiles", shop.folder.Path("data\\t*.dat"));
  shop.Drop("t1.dat", {"0;1;"});
  shop.Drop("t2.txt", {"0;2;"});
  shop.Drop("x3.dat", {"0;3;"});
  shop.folder.Write("data\\t4.dat\\inside.dat", "a folder of the mask");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.dat"});
  EXPECT_EQ(Waiting(shop), (Lines{"t2.txt", "x3.dat"}));
  EXPECT_TRUE(shop.folder.Has("data\\t4.dat\\inside.dat"));
  EXPECT_EQ(shop.Err(), Lines{});
}

// Files that stay in the in-process folder.

TEST(LeftFile, IsTriedTenTimesAndThenHoldsUpTheOthersNoLonger) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  DropAt(shop, "b.txt", 2, 2000);
  shop.files.FailAlways("OpenForReading", "inproces\\a.txt", error_number::kPermissionDenied);
  shop.Run(30s);
  EXPECT_EQ(shop.SentAt("105102"), Times{5000});
  EXPECT_EQ(shop.Err().size(), 10U);
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"})) << "nothing for the other";
  EXPECT_EQ(Waiting(shop), Lines{"inproces\\a.txt"});
}

TEST(LeftFile, IsTriedOnEveryTickWithoutACommandToTheRegister) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  shop.files.FailAlways("OpenForReading", "inproces\\a.txt", error_number::kPermissionDenied);
  shop.After(70s, [&] { shop.files.Heal(); });
  shop.Run(5min);
  EXPECT_EQ(shop.Err().size(), 10U + 1U + 1U) << "ten times, once a minute, and that it has ended";
  EXPECT_EQ(shop.SentAt("105101"), Times{70000});
  EXPECT_EQ(shop.SentAt("321701"), Times{70000});
  EXPECT_EQ(Waiting(shop), Lines{});
}

TEST(LeftFile, OneThatWasFinallyPrintedStartsItsTriesOver) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  const auto lock = [&] {
    shop.files.FailAlways("OpenForReading", "inproces\\a.txt", error_number::kPermissionDenied);
  };
  lock();
  shop.After(4700ms, [&] { shop.files.Heal(); });
  shop.After(10200ms, [&] {
    LeaveInProcess(shop, "a.txt", 2, 2000);
    lock();
  });
  shop.After(14700ms, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), (Times{5000, 15000}));
}

TEST(LeftFile, OneOfAPrintedTicketsNameHasAllItsTries) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  shop.Hold("inproces");
  shop.After(5200ms, [&] { shop.files.Heal(); });
  shop.After(5700ms, [&] {
    LeaveInProcess(shop, "a.txt", 2, 2000);
    shop.files.FailAlways("OpenForReading", "inproces\\a.txt", error_number::kPermissionDenied);
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Err().size(), 1U + 10U) << "the file held, and the tries of the one that cannot be read";
}

TEST(LeftFile, OneThatVanishesAfterItWasListedIsSkipped) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  DropAt(shop, "b.txt", 2, 2000);
  shop.files.Before("Exists", [&](const std::string& path) {
    if (path.ends_with("command.txt")) shop.folder.Remove("data\\inproces\\a.txt");
  });
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), Times{500});
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
}

TEST(LeftFile, ANewTicketOfItsNameDoesNotReplaceIt) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  DropAt(shop, "a.txt", 2, 2000);
  shop.files.FailAlways("OpenForReading", "inproces\\a.txt", error_number::kPermissionDenied);
  shop.After(30s, [&] { shop.files.Heal(); });
  Lines waiting;
  shop.After(29s, [&] { waiting = Waiting(shop); });
  shop.Run(5min);
  EXPECT_EQ(waiting, (Lines{"a.txt", "inproces\\a.txt"}));
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
}

TEST(LeftFile, ANewTicketOfItsNameDoesNotReplaceItEvenIfACheckFails) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  DropAt(shop, "a.txt", 2, 2000);
  for (const char* operation : {"Exists", "OpenForReading"}) {
    shop.files.FailAlways(operation, "inproces\\a.txt", error_number::kDeviceError);
  }
  shop.After(30s, [&] { shop.files.Heal(); });
  shop.Run(5min);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
}

TEST(LeftFile, OneThatCannotBeCheckedIsReadAnyway) {
  Shop shop;
  LeaveInProcess(shop, "a.txt", 1, 1000);
  shop.files.FailAlways("Exists", "inproces\\a.txt", error_number::kDeviceError);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Err(), Lines{});
}

// Folders that are missing or unreadable.

TEST(PolledFolders, AnInProcessFolderRemovedWhileRunningIsMadeAgain) {
  Shop shop;
  shop.After(5200ms, [&] { shop.folder.Remove("data\\inproces"); });
  shop.After(5300ms, [&] { shop.Drop("ticket.txt", {"0;1;"}); });
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), Times{5500});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(PolledFolders, AMissingTicketFolderIsLoggedAndPollingGoesOnWhenItComesBack) {
  Shop shop;
  shop.After(5200ms, [&] { shop.folder.RenameFolder("data", "elsewhere"); });
  shop.After(5700ms, [&] { shop.folder.RenameFolder("elsewhere", "data"); });
  shop.After(5800ms, [&] { shop.Drop("ticket.txt", {"0;1;"}); });
  shop.Run();
  EXPECT_EQ(shop.Err(), (Lines{"Timer1 - 76 - Path not found ( " + shop.Spelled("data\\") + " )",
                               "Timer1 - 76 - Path not found ( " + shop.Spelled("data\\inproces\\") + " )"}));
  EXPECT_EQ(shop.SentAt("1051"), Times{6000});
}

TEST(PolledFolders, NewTicketsWaitWhileLeftoversCannotBeListed) {
  Shop shop;
  LeaveInProcess(shop, "ticket.txt", 1, 2000);
  DropAt(shop, "ticket.txt", 3, 1000);
  DropAt(shop, "other.txt", 2, 500);
  shop.folders.FailAlways("ListFolder", "inproces", error_number::kPathFileAccess);
  Lines sentBefore{"not asked"};
  shop.After(5200ms, [&] {
    sentBefore = shop.SentForTickets();
    shop.folders.Heal();
  });
  shop.Run();
  EXPECT_EQ(sentBefore, Lines{});
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102", "105103"}));
}

TEST(PolledFolders, LeftoversArePrintedWhileTheNewTicketsCannotBeListed) {
  Shop shop;
  LeaveInProcess(shop, "ticket.txt", 1, 1000);
  shop.folders.FailNext("ListFolder", error_number::kPathFileAccess);
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), Times{500});
  EXPECT_EQ(shop.Err().size(), 1U);
}

TEST(PolledFolders, ALeftoverIsNotPrintedFromAnOldList) {
  Shop shop;
  LeaveInProcess(shop, "ticket.txt", 1, 1000);
  shop.After(700ms, [&] {
    shop.folders.FailAlways("ListFolder", "", error_number::kPathFileAccess);
    LeaveInProcess(shop, "ticket.txt", 2, 1000);
  });
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
}

TEST(PolledFolders, NewTicketsAreNotTakenFromAnOldListEither) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.After(700ms, [&] {
    shop.folders.FailAlways("ListFolder", "data\\*.txt", error_number::kPathFileAccess);
    shop.Drop("ticket.txt", {"0;2;"});
  });
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
}

// Files of several tickets.

const Lines kThreeTickets = {"0;1;", "4;1;", "0;2;", "4;2;", "0;3;", "4;3;"};
/// A void without a receipt is refused; here only its effect of closing a ticket matters.
const char* const kVoidsAccepted = "on 1028 x* reply 102800";

TEST(FileParser, MakesThreeFilesOfThreeTicketsAndPrintsOneATick) {
  Shop shop(kVoidsAccepted);
  shop.Configure("General", "File Parser", "1");
  shop.Drop("ticket.txt", kThreeTickets);
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "102801", "105102", "102802", "105103", "102803"}));
  EXPECT_EQ(shop.SentAt("1051"), (Times{500, 1000, 1500}));
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt", "3.txt"}));
  EXPECT_EQ(shop.folder.Read("storico\\2.txt"), "0;2;\r\n4;2;\r\n");
  EXPECT_EQ(Waiting(shop), Lines{});
}

TEST(FileParser, AlsoSplitsAFileLeftInTheInProcessFolder) {
  Shop shop(kVoidsAccepted);
  shop.Configure("General", "File Parser", "1");
  shop.folder.Write("data\\inproces\\ticket.txt", Shop::Joined(kThreeTickets));
  shop.Run();
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt", "3.txt"}));
}

TEST(FileParser, ProcessesAFileOfThreeTicketsAsOneWhenItIsOff) {
  Shop shop(kVoidsAccepted);
  shop.Drop("ticket.txt", kThreeTickets);
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), (Times{500, 500, 500}));
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(shop.folder.Read("storico\\1.txt"), Shop::Joined(kThreeTickets));
}

TEST(FileParser, AFileThatCannotBeReadAtOnceIsSplitAgainBeforeItsPartsArePrinted) {
  Shop shop(kVoidsAccepted);
  shop.Configure("General", "File Parser", "1");
  shop.folder.Write("data\\inproces\\ticket1.txt", "0;1;\r\n4;1;\r\n");
  shop.folder.SetModified("data\\inproces\\ticket1.txt", 1000);
  shop.folder.Write("data\\inproces\\ticket.txt", Shop::Joined(kThreeTickets));
  shop.folder.SetModified("data\\inproces\\ticket.txt", 2000);
  shop.files.FailAlways("OpenForReading", "inproces\\ticket.txt", error_number::kPermissionDenied);
  shop.After(2200ms, [&] { shop.files.Heal(); });
  shop.Run();
  EXPECT_EQ(shop.SentAt("1051"), (Times{2500, 3000, 3500}));
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt", "3.txt"}));
}

TEST(FileParser, AFileThatCannotBeSplitIsNotPrintedUntilItCan) {
  Shop shop(kVoidsAccepted);
  shop.Configure("General", "File Parser", "1");
  shop.Drop("ticket.txt", kThreeTickets);
  shop.After(100ms, [&] { shop.files.FailNth("Write", 2, error_number::kDiskFull); });
  shop.Run();
  EXPECT_EQ(shop.Err(), Lines{"Timer1 - 61 - Disk full ( " + shop.Spelled("data\\inproces\\ticket2.txt )")});
  EXPECT_EQ(shop.SentAt("1051"), (Times{1000, 1500, 2000}));
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt", "3.txt"}));
}

TEST(FileParser, AFileThatCanNeverBeSplitDoesNotHoldUpTheOthers) {
  Shop shop(kVoidsAccepted);
  shop.Configure("General", "File Parser", "1");
  shop.Drop("a.txt", kThreeTickets);
  shop.Drop("b.txt", {"0;9;"});
  shop.After(100ms, [&] { shop.files.FailAlways("Write", "inproces", error_number::kDiskFull); });
  shop.Run();
  EXPECT_EQ(shop.SentAt("105109"), Times{5000});
  EXPECT_EQ(shop.SentForTickets(), Lines{"105109"});
  EXPECT_EQ(Waiting(shop), Lines{"inproces\\a.txt"});
}

}  // namespace
}  // namespace orvenza::test
