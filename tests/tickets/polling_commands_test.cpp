#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/shop.h"
#include "tickets/ticket_polling.h"

// The host's command file.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

Lines LastTwo(const Lines& lines) { return {lines.end() - 2, lines.end()}; }

TEST(CommandFile, EndsTheProgramOnQuitAndOnAnEmptyFirstLine) {
  const std::string quits[] = {"QUIT",        "quit\r\n", " quit ",       "QuIt",     "quit\n second line",
                               "quit\rSTOP",  "",         "\r\n",         "\n",       "\r",
                               "   \r\nSTOP", "\nSTOP",   "  quit  \r\n", "QUIT\n\n", "\n\nQUIT"};
  for (const std::string& command : quits) {
    Shop shop;
    shop.folder.Write("command.txt", command);
    shop.Drop("ticket.txt", {"0;1;"});
    shop.RunToItsEnd();
    EXPECT_EQ(LastTwo(shop.Log()), (Lines{"Quit Command !", "End"})) << command;
    EXPECT_EQ(shop.clock.Uptime(), 500ms) << command << ": on the first tick";
    EXPECT_FALSE(shop.folder.Has("command.txt")) << command;
    EXPECT_EQ(shop.Names("data"), Lines{"ticket.txt"}) << command << ": no ticket is taken any more";
    EXPECT_EQ(shop.Err(), Lines{}) << command;
  }
}

TEST(CommandFile, IgnoresAnyOtherTextAndLeavesTheFile) {
  const std::string others[] = {"STOP",
                                "QUIT NOW",
                                "STOP\r\nQUIT",
                                "\tQUIT",
                                "\"QUIT\"",
                                "QUI T",
                                "\x1a",
                                "QUIT\x1a",
                                "\xEF\xBB\xBFQUIT",
                                std::string("\xFF\xFEQ\0U\0I\0T\0", 10),
                                std::string(70000, ' ') + "STOP",
                                std::string("\0\x01\xff\xfe", 4),
                                std::string(100000, '\0')};
  for (const std::string& command : others) {
    Shop shop;
    shop.folder.Write("command.txt", command);
    shop.Drop("ticket.txt", {"0;1;"});
    std::string found;
    shop.After(9s, [&] { found = shop.folder.Read("command.txt"); });
    shop.Run(10s);
    EXPECT_EQ(found, command);
    EXPECT_EQ(shop.SentForTickets(), Lines{"105101"}) << command;
    EXPECT_EQ(shop.Err(), Lines{}) << command;
  }
}

TEST(CommandFile, ClosesThePortAndRemovesTheIconWithoutAQuestion) {
  Shop shop;
  shop.Run(2s);
  EXPECT_FALSE(shop.link.PortOpen());
  EXPECT_EQ(shop.link.Settings().back(), "PortOpen 0");
  EXPECT_EQ(shop.icon.created, 1);
  EXPECT_EQ(shop.icon.deleted, 1);
  EXPECT_EQ(shop.DialogTexts(), Lines{});
}

TEST(CommandFile, OneThatIsLockedIsLoggedAndTheTickGoesOn) {
  Shop shop;
  shop.folder.Write("command.txt", "QUIT");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.files.FailAlways("OpenForReading", "command.txt", error_number::kPermissionDenied);
  shop.After(1200ms, [&] { shop.files.Heal(); });
  shop.RunToItsEnd();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.clock.Uptime(), 1500ms);
  const std::string line = "Timer1 - 70 - Permission denied ( " + shop.folder.Path("command.txt )");
  EXPECT_EQ(shop.Err(), (Lines{line, line}));
}

TEST(CommandFile, OneThatCannotBeReadIsLoggedAndTheTickGoesOn) {
  Shop shop;
  shop.folder.Write("command.txt", "QUIT");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.After(100ms, [&] { shop.files.FailNext("Read", error_number::kDeviceError); });
  shop.RunToItsEnd();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.clock.Uptime(), 1000ms);
  EXPECT_EQ(shop.Err(), Lines{"Timer1 - 57 - Device I/O error ( " + shop.folder.Path("command.txt )")});
}

TEST(CommandFile, OneThatVanishesBeforeItIsReadIsLoggedAndTheTickGoesOn) {
  Shop shop;
  shop.folder.Write("command.txt", "QUIT");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.After(100ms, [&] {
    shop.files.Before("OpenForReading", [&](const std::string& path) {
      if (path.ends_with("command.txt")) shop.folder.Remove("command.txt");
      if (path.ends_with("ticket.txt")) shop.files.Heal();
    });
  });
  shop.Run(5s);
  EXPECT_EQ(shop.SentAt("1051"), std::vector<std::int64_t>{500});
  EXPECT_EQ(shop.Err(), Lines{"Timer1 - 53 - File not found ( " + shop.folder.Path("command.txt )")});
  EXPECT_EQ(shop.clock.Uptime(), 5000ms);
}

TEST(CommandFile, AFolderOfThatNameIsNone) {
  Shop shop;
  shop.folder.Write("command.txt\\QUIT", "");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.After(2s, [&] { shop.folder.Remove("command.txt"); });
  shop.Run(3s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Err(), Lines{});
  EXPECT_EQ(shop.clock.Uptime(), 3000ms);
}

TEST(CommandFile, OnlyTheBeginningOfAnEndlessOneIsRead) {
  Shop shop;
  shop.folder.Write("command.txt", std::string(1'000'000, '\0'));
  int reads = 0;
  shop.files.Before("Read", [&](const std::string& path) { reads += path.ends_with("command.txt"); });
  int readsOfThreeTicks = 0;
  shop.After(1700ms, [&] { readsOfThreeTicks = reads; });
  shop.Run(2s);
  EXPECT_EQ(readsOfThreeTicks, 3 * 4);  // pieces of 16 kB: at most 64 kB are read
  EXPECT_EQ(shop.clock.Uptime(), 2000ms);
}

TEST(CommandFile, OneThatCannotBeDeletedEndsTheProgramAnyway) {
  Shop shop;
  shop.folder.Write("command.txt", "QUIT");
  shop.files.FailAlways("Remove", "command.txt", error_number::kPermissionDenied);
  shop.RunToItsEnd();
  EXPECT_EQ(LastTwo(shop.Log()), (Lines{"Quit Command !", "End"}));
  EXPECT_EQ(shop.Err(), Lines{"Timer1 - 70 - Permission denied ( " + shop.folder.Path("command.txt )")});
  EXPECT_TRUE(shop.folder.Has("command.txt"));
}

TEST(CommandFile, OneThatIsReadOnlyIsDeleted) {
  Shop shop;
  shop.folder.Write("command.txt", "QUIT");
  shop.files.FailAlways("Remove", "command.txt", error_number::kPermissionDenied);
  shop.files.Before("ClearAttributes", [&](const std::string&) { shop.files.Heal(); });
  shop.RunToItsEnd();
  EXPECT_FALSE(shop.folder.Has("command.txt"));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(CommandFile, WaitsUntilTheTicketIsPrinted) {
  Shop shop("on 1051 late 5000");
  shop.Drop("ticket.txt", {"0;1;", "0;2;"});
  shop.Run(2s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(shop.Log(), (Lines{"Start Rel. 1.0.0", "Dati Cash : 00ORVSIM  01  01.00.00", "Start Scontrino",
                               "End Scontrino", "Quit Command !", "End"}));
  EXPECT_EQ(shop.clock.Uptime(), 6000ms);
}

}  // namespace
}  // namespace orvenza::test
