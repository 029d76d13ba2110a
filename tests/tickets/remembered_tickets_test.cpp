#include "tickets/remembered_tickets.h"

#include <gtest/gtest.h>

#include <string>

#include "support/shop.h"
#include "tickets/waiting_tickets.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const char* const kFile = "Remembered.ini";

RememberedFiles Examples() {
  RememberedFiles files;
  files.takenIn["20261116090000a = 1.txt"] = FingerprintOf("0;1;\r\n");
  files.takenIn["20261116090001b.txt"];
  files.settled["c.txt"] = {true, FingerprintOf("")};
  files.settled["d  e.txt"] = {false, FingerprintOf("x")};
  return files;
}

TEST(RememberedFilesText, SaysWhatIsReadFromIt) {
  const RememberedFiles read = ParseRememberedFiles(RememberedFilesText(Examples()));
  EXPECT_EQ(read.takenIn, Examples().takenIn);
  EXPECT_EQ(read.settled, Examples().settled);
}

TEST(RememberedFilesText, OfADamagedLineNothingIsReadAndOfTheOthersAll) {
  const char* const damaged[] = {"[TakenIn]\r\n1=2026111609000 4 ab a.txt\r\n",
                                 "[TakenIn]\r\n1=2026111609000x 4 ab a.txt\r\n",
                                 "[TakenIn]\r\n1=20261116090000 4 xy a.txt\r\n",
                                 "[TakenIn]\r\n1=20261116090000 4 ab\r\n",
                                 "[TakenIn]\r\n20261116090000 4 ab a.txt\r\n",
                                 "[Settled]\r\n1=perhaps 4 ab a.txt\r\n",
                                 "[Settled]\r\n1=copied - - a.txt\r\n",
                                 "[Settled]\r\n1=copied 4 ab \r\n",
                                 "[Other]\r\n1=copied 4 ab a.txt\r\n",
                                 "1=copied 4 ab a.txt\r\n",
                                 "\0\0\0\0"};
  for (const std::string line : damaged) {
    EXPECT_TRUE(ParseRememberedFiles(line).Empty()) << line;
    const RememberedFiles rest = ParseRememberedFiles(line + RememberedFilesText(Examples()));
    EXPECT_EQ(rest.takenIn, Examples().takenIn) << line;
    EXPECT_EQ(rest.settled, Examples().settled) << line;
  }
}

TEST(FingerprintOfText, TellsTextsApart) {
  EXPECT_EQ(FingerprintOf("0;1;"), FingerprintOf("0;1;"));
  EXPECT_NE(FingerprintOf("0;1;"), FingerprintOf("0;2;"));
  EXPECT_NE(FingerprintOf(""), FingerprintOf(std::string(1, '\0')));
}

/// A shop with a printed ticket whose source was held by another program and could not be removed.
struct ShopWithHeldSource : Shop {
  ShopWithHeldSource() {
    DropAt(*this, "ticket.txt", 1, 1000);
    Hold("data\\ticket.txt");
    Run(5s);
    EXPECT_EQ(SentForTickets(), Lines{"105101"});
  }
};

TEST(RememberedTicket, IsNotPrintedByTheNextStartEither) {
  ShopWithHeldSource shop;
  for (int start = 0; start < 3; ++start) shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(Waiting(shop), Lines{"ticket.txt"});
  EXPECT_TRUE(shop.folder.Has(kFile));
}

TEST(RememberedTicket, IsForgottenOnceItsSourceHasGone) {
  ShopWithHeldSource shop;
  shop.files.Heal();
  shop.Run(5s);
  EXPECT_EQ(Waiting(shop), Lines{});
  EXPECT_FALSE(shop.folder.Has(kFile));
}

TEST(RememberedTicket, AnotherTextOfItsNameAndTimeIsPrinted) {
  ShopWithHeldSource shop;
  DropAt(shop, "ticket.txt", 2, 1000);
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
}

TEST(RememberedTicket, ATicketOfItsNameIsPrintedWhereTheSourceWentWhileNothingRan) {
  ShopWithHeldSource shop;
  shop.files.Heal();
  DropAt(shop, "ticket.txt", 1, 5000);
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105101"}));
}

TEST(RememberedTicket, IsOnTheDiskBeforeTheFirstCommand) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("data\\ticket.txt");
  bool known = false;
  shop.link.SetObserver([&](LineEvent, const std::string& text) {
    if (text == "321701") known = shop.folder.Has(kFile);
  });
  shop.Run(5s);
  EXPECT_TRUE(known);
}

TEST(RememberedTicket, ASettledFileIsNotPrintedByTheNextStart) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Fill("storico");
  shop.Fill("abort");
  shop.Run(5s);
  shop.Run(5s);
  EXPECT_EQ(Waiting(shop), Lines{"inproces\\ticket.txt"});
  shop.files.Heal();
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(Waiting(shop), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
  EXPECT_FALSE(shop.folder.Has(kFile));
}

TEST(RememberedTicket, ASettledFileThatWasCopiedIsNotCopiedByTheNextStart) {
  Shop shop;
  LeaveInProcess(shop, "ticket.txt", 1, 1000);
  shop.Hold("inproces\\ticket.txt");
  shop.Run(5s);
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  shop.files.Heal();
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{});
  EXPECT_EQ(Waiting(shop), Lines{});
}

TEST(RememberedTicket, ASettledNameWithAnotherTextIsATicketOfTheNextStart) {
  Shop shop;
  LeaveInProcess(shop, "ticket.txt", 1, 1000);
  shop.Fill("storico");
  shop.Fill("abort");
  shop.Run(5s);
  shop.files.Heal();
  LeaveInProcess(shop, "ticket.txt", 2, 1000);
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
}

TEST(RememberedTicket, WhereItCannotBeWrittenThatIsOneLineAndPrintingGoesOn) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("data\\ticket.txt");
  shop.files.FailAlways("Write", kFile, error_number::kDiskFull);
  shop.After(5s, [&] { shop.Drop("other.txt", {"0;2;"}); });
  shop.Run(30s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(shop.Err().size(), 2U) << "the source, and the memory";
  EXPECT_EQ(shop.Err()[1], "Remembered.ini - 61 - Disk full ( " + shop.folder.Path(kFile) + " )");
}

TEST(RememberedTicket, IsWrittenWhenThatWorksAgain) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("data\\ticket.txt");
  shop.files.FailAlways("Write", kFile, error_number::kDiskFull);
  shop.After(5s, [&] {
    shop.files.Heal();
    shop.Hold("data\\ticket.txt");
  });
  shop.Run(10s);
  shop.Run(10s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
}

TEST(RememberedTicket, AMemoryThatCannotBeReadAtOnceIsWaitedFor) {
  ShopWithHeldSource shop;
  shop.files.FailAlways("OpenForReading", kFile, error_number::kPermissionDenied);
  shop.After(3s, [&] {
    shop.files.Heal();
    shop.Hold("data\\ticket.txt");
  });
  shop.Run(10s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
}

TEST(RememberedTicket, AMemoryThatCannotBeReadStopsNothingAndIsNotOverwritten) {
  ShopWithHeldSource shop;
  const std::string before = shop.folder.Read(kFile);
  shop.files.FailAlways("OpenForReading", kFile, error_number::kPermissionDenied);
  DropAt(shop, "other.txt", 2, 2000);
  shop.Run(30s);
  EXPECT_EQ(shop.SentForTickets().back(), "105102");
  EXPECT_EQ(shop.folder.Read(kFile), before);
  int lines = 0;
  for (const std::string& line : shop.Err()) lines += line.starts_with("Remembered.ini - ");
  EXPECT_EQ(lines, 1);
}

TEST(RememberedTicket, NothingIsAskedOfTheDiskWhereThereIsNothingToRemember) {
  Shop shop;
  int opened = 0;
  shop.files.Before("OpenForReading", [&](const std::string& path) { opened += path.ends_with(kFile); });
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Run(60s);
  EXPECT_EQ(opened, 1) << "at the start";
}

TEST(RememberedTicket, ItsFileIsNoTicketWhateverTheMask) {
  Shop shop;
  shop.Configure("Database", "TicketFiles", shop.folder.Path("R*.ini"));
  shop.folder.Write(kFile, "0;1;\r\n");
  shop.folder.Write("Receipt.ini", "0;2;\r\n");
  shop.Run(5s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105102"});
  EXPECT_EQ(shop.folder.Read(kFile), "0;1;\r\n");
}

}  // namespace
}  // namespace orvenza::test
