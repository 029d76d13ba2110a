#include "tickets/historic_rotation.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "core/logs.h"
#include "platform/failure_of.h"
#include "simulator/virtual_disk.h"
#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;
using Date = std::chrono::year_month_day;

constexpr Date kToday{2026y / 11 / 16};  // of the virtual clock, at nine o'clock
constexpr Date kYesterday{2026y / 11 / 15};

/// Noon, which is the same day in every European time zone.
std::int64_t NoonOf(Date date) {
  return (std::chrono::sys_days(date) + 12h).time_since_epoch() / std::chrono::seconds(1);
}

void KeepInHistoric(const Shop& shop, const std::string& name, Date date) {
  shop.folder.Write("storico\\" + name, name);
  shop.folder.SetModified("storico\\" + name, NoonOf(date));
}

/// The rotation alone, in a shop without a running connector.
class RotationTest : public ::testing::Test {
 protected:
  RotationTest() {
    settings.TicketMask = "*.txt";
    settings.HistoricFolder = shop.folder.Path("storico\\");
    settings.ErrPath = shop.folder.Path("Err.txt");
  }

  void Keep(const std::string& name, Date date) { KeepInHistoric(shop, name, date); }
  void MakeFolder(const std::string& name) { shop.folder.MakeFolder(name); }
  void Rotate() { RotateHistoricFolder(shop.folders, shop.clock, logs, settings); }

  /// The folders of the shop, sorted.
  Lines FoldersInShop() {
    Lines names;
    for (const FolderEntry& entry : shop.disk.FolderSeam().ListFolder(shop.folder.Path("*"))) {
      if (entry.isFolder) names.push_back(entry.name);
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  Shop shop;
  AppSettings settings;
  Logs logs{shop.files, shop.clock, settings, shop.folder.Path()};
};

TEST_F(RotationTest, LeavesAFolderWhoseNewestTicketIsFromToday) {
  Keep("1.txt", kYesterday);
  Keep("2.txt", kToday);
  Keep("3.txt", kYesterday);
  Rotate();
  EXPECT_EQ(FoldersInShop(), Lines{"storico"});
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt", "3.txt"}));
}

TEST_F(RotationTest, RenamesAFolderByTheDayOfItsNewestTicketAndMakesItAgain) {
  Keep("1.txt", 2024y / 2 / 29);
  Keep("2.txt", 2024y / 3 / 3);
  Keep("3.txt", 2023y / 12 / 31);
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_20240303"}));
  EXPECT_EQ(shop.Names("storico"), Lines{});
  EXPECT_EQ(shop.Names("storico_20240303"), (Lines{"1.txt", "2.txt", "3.txt"}));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(RotationTest, AppendsTheTimeOfDayWhereTheDatedFolderExists) {
  Keep("1.txt", kYesterday);
  MakeFolder("storico_20261115");
  shop.clock.Advance(5s);
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_20261115", "storico_20261115_090005"}));
  EXPECT_EQ(shop.Names("storico_20261115_090005"), Lines{"1.txt"});
}

TEST_F(RotationTest, AppendsTheTimeOfDayAlsoBesideFoldersThatHaveOneAlready) {
  Keep("1.txt", kYesterday);
  MakeFolder("storico_20261115_070000");
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_20261115_070000", "storico_20261115_090000"}));
}

TEST_F(RotationTest, RenamesAnEmptyFolderByTheDateZero) {
  MakeFolder("storico");
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_18991230"}));
}

TEST_F(RotationTest, CountsOnlyFilesOfTheMaskAndMovesTheOthersAlong) {
  Keep("1.txt", kYesterday);
  Keep("notes.doc", kToday);
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_20261115"}));
  EXPECT_EQ(shop.Names("storico_20261115"), (Lines{"1.txt", "notes.doc"}));
}

TEST_F(RotationTest, AFolderWithoutAnyFileOfTheMaskHasTheDateZero) {
  Keep("notes.doc", kToday);
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_18991230"}));
}

TEST_F(RotationTest, CountsArchivedTicketsUnderAMaskThatTheirNumbersDoNotFit) {
  const std::pair<const char*, const char*> rows[] = {
      {"scontrino.txt", "1.txt"}, {"t*.txt", "12.TXT"}, {"*.html", "3.tml"}, {"t*", "4.txt"}};
  for (const auto& [mask, archived] : rows) {
    settings.TicketMask = mask;
    Keep(archived, kToday);
    Rotate();
    EXPECT_EQ(FoldersInShop(), Lines{"storico"}) << mask;
    shop.folder.Remove("storico\\" + std::string(archived));
  }
}

TEST_F(RotationTest, CountsNoOtherNamesOfTheArchivedTicketsExtension) {
  settings.TicketMask = "t*.txt";
  Keep("1.txt", kYesterday);
  for (const char* name : {"1a.txt", "a1.txt", ".txt", "1.2.txt", "1txt", "2.dat", "-3.txt"})
    Keep(name, kToday);
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_20261115"}));
}

TEST_F(RotationTest, CountsASubfolderOfTheMaskToo) {
  VirtualDisk disk(shop.clock);  // on which a folder can have the clock's date
  settings.HistoricFolder = "C:\\storico\\";
  disk.Put("C:\\storico\\1.txt", "", LocalTime{2026, 11, 15, 12, 0, 0});
  disk.MakeFolder("C:\\storico\\kept.txt");
  RotateHistoricFolder(disk.FolderSeam(), shop.clock, logs, settings);
  EXPECT_TRUE(disk.FolderSeam().Exists("C:\\storico\\kept.txt"));
}

TEST_F(RotationTest, AppendsTheTimeOfDayAlsoBesideAFileOfTheDatedName) {
  Keep("1.txt", kYesterday);
  shop.folder.Write("storico_20261115.zip", "");
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_20261115_090000"}));
}

TEST_F(RotationTest, GivesTheSameNameWithoutATrailingBackslash) {
  settings.HistoricFolder = shop.folder.Path("storico");
  settings.TicketMask = "\\*.txt";  // the mask directly follows the path
  Keep("1.txt", kYesterday);
  Rotate();
  EXPECT_EQ(FoldersInShop(), (Lines{"storico", "storico_20261115"}));
}

TEST_F(RotationTest, DoesNothingForAMissingFolder) {
  Rotate();
  EXPECT_EQ(FoldersInShop(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(RotationTest, DoesNothingForAnEmptyPath) {
  settings.HistoricFolder = "";
  MakeFolder("storico");
  Rotate();
  EXPECT_EQ(FoldersInShop(), Lines{"storico"});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(RotationTest, AFolderInUseIsPassedOnWithNothingChanged) {
  Keep("1.txt", kYesterday);
  shop.folders.FailNext("Rename", error_number::kPathFileAccess);
  EXPECT_EQ(FailureOf([&] { Rotate(); }), "75 Path/File access error ( " + settings.HistoricFolder + " )");
  EXPECT_EQ(FoldersInShop(), Lines{"storico"});
  EXPECT_NE(settings.HistoricFolder, "");
}

TEST_F(RotationTest, ArchivingIsOffWhereTheFolderCannotBeMadeAgain) {
  Keep("1.txt", kYesterday);
  const std::string historic = settings.HistoricFolder;
  shop.folders.FailNext("Create", error_number::kPermissionDenied);
  Rotate();
  EXPECT_EQ(FoldersInShop(), Lines{"storico_20261115"});
  EXPECT_EQ(settings.HistoricFolder, "");
  EXPECT_EQ(shop.Err(), (Lines{"CreateAllDirs 70 - Permission denied ( " + shop.folder.Path("storico )"),
                               "Errore creazione cartella storico scontrini : " + historic}));
}

TEST_F(RotationTest, AFolderThatCannotBeCheckedIsLeftAsItIs) {
  Keep("1.txt", kYesterday);
  shop.folders.FailNext("Exists", error_number::kDeviceError);
  EXPECT_EQ(FailureOf([&] { Rotate(); }).substr(0, 19), "57 Device I/O error");
  EXPECT_EQ(FoldersInShop(), Lines{"storico"});
}

TEST_F(RotationTest, ArchivingIsNotOffWhereALookForTheNewFolderFails) {
  Keep("1.txt", kYesterday);
  shop.folders.FailNth("Exists", 2, error_number::kDeviceError);
  EXPECT_EQ(FailureOf([&] { Rotate(); }).substr(0, 19), "57 Device I/O error");
  EXPECT_EQ(settings.HistoricFolder, shop.folder.Path("storico\\"));
}

TEST_F(RotationTest, DoesNothingForAMissingDrive) {
  shop.folders.TakeDriveAway("storico");
  shop.folders.FailAlways("Exists", "storico", error_number::kDeviceUnavailable);
  Rotate();
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(RotationTest, EarlierDaysAreTheFoldersThatItMade) {
  for (const int day : {15, 15, 14}) {
    Keep("1.txt", 2026y / 11 / day);
    Rotate();
  }
  for (const char* name : {"storico_2026", "storico_vecchio", "storico_20261115_0900", "storico_20261113x",
                           "storico_2026111a", "storico_20261115-090000", "altro_20261113"}) {
    MakeFolder(name);
  }
  shop.folder.Write("storico_20261112", "");
  EXPECT_EQ(EarlierDays(shop.folders, settings.HistoricFolder),
            (Lines{shop.folder.Path("storico_20261114\\"), shop.folder.Path("storico_20261115\\"),
                   shop.folder.Path("storico_20261115_090000\\")}));
  EXPECT_EQ(EarlierDays(shop.folders, ""), Lines{});
}

// Whether the folder may be used at all.

bool Holds(const std::string& tickets, const std::string& historic) {
  AppSettings settings;
  settings.TicketFolder = tickets;
  settings.InProcessFolder = tickets + "inproces\\";
  settings.HistoricFolder = historic;
  return HistoricHoldsTickets(settings, "C:\\Program\\Orvenza");
}

TEST(HistoricHoldsTickets, IsSoInEverySpellingOfAFolderThatIsPolledOrLiesAboveOne) {
  const std::pair<const char*, const char*> rows[] = {
      {"C:\\shop\\data\\", "C:\\shop\\data\\inproces\\"},
      {"C:\\shop\\data\\", "c:\\SHOP\\data\\"},
      {"C:\\shop\\data\\", "C:\\shop\\\\data\\inproces\\"},
      {"C:\\shop\\data\\", "C:\\shop\\data\\inproces\\\\"},
      {"C:\\shop\\data\\", "C:\\shop\\.\\data\\.\\"},
      {"C:\\shop\\data\\", "C:\\shop\\data\\..\\data\\"},
      {"C:\\shop\\data\\", "C:\\shop\\data\\x\\y\\..\\..\\INPROCES\\"},
      {"C:\\shop\\data\\", "C:\\..\\..\\shop\\"},
      {"C:\\shop\\\\x\\..\\data\\", "C:\\shop\\data\\"},
      {"C:/shop//data/", "C:\\shop\\data\\inproces\\"},
      {"D:\\data\\", "C:\\Program\\x\\..\\"},
      {"\\shop\\data\\", "\\\\\\shop\\data\\"},
      {"\\shop\\data\\", "\\..\\shop\\data\\"},
      {"\\\\till\\c\\data\\", "\\\\TILL\\c\\\\data\\"},
      {"\\\\till\\c\\data\\", "\\\\till\\c\\..\\..\\data\\"},
      {"data\\", ".\\data\\"},
      {"data\\", ".\\"},
      {"..\\data\\", "x\\..\\..\\data\\"},
      {"", ".\\inproces\\"},
  };
  for (const auto& [tickets, historic] : rows) {
    EXPECT_TRUE(Holds(tickets, historic)) << tickets << " " << historic;
  }
}

TEST(HistoricHoldsTickets, IsNotSoOfAnyOtherFolder) {
  const std::pair<const char*, const char*> rows[] = {
      {"C:\\shop\\data\\", ""},
      {"C:\\shop\\data\\", "C:\\shop\\storico\\"},
      {"C:\\shop\\data\\", "C:\\shop\\dat\\"},
      {"C:\\shop\\data\\", "C:\\shop\\data\\..\\storico\\"},
      {"C:\\shop\\data\\", "C:\\shop\\data\\inproces\\printed\\"},
      {"C:\\shop\\data\\", "C:\\shop\\data\\...\\"},
      {"C:\\shop\\data\\", "\\shop\\data\\"},
      {"C:\\shop\\data\\", ".\\"},
      {"\\till\\c\\data\\", "\\\\till\\c\\data\\"},
      {"\\\\till\\c\\data\\", "\\\\till\\d\\..\\c\\data\\"},
      {"data\\", "..\\data\\"},
      {"data\\", "..\\..\\data\\"},
  };
  for (const auto& [tickets, historic] : rows) {
    EXPECT_FALSE(Holds(tickets, historic)) << tickets << " " << historic;
  }
}

// The rotation at start-up.

/// Times at which renaming the historic folder was tried, in seconds since the connector's start.
std::vector<std::int64_t> RenamesOf(Shop& shop) {
  std::vector<std::int64_t> tries;
  shop.folders.Before("Rename", [&](const std::string&) { tries.push_back(shop.clock.Uptime() / 1s); });
  shop.Run();
  return tries;
}

std::string RenameLine(const Shop& shop) {
  return "Main - Tentativo di rinominare cartella scontrini storici : " + shop.Spelled("storico\\");
}

TEST(RotationAtStartUp, RunsOnceBeforeAnyTicketIsArchived) {
  Shop shop;
  KeepInHistoric(shop, "7.txt", kYesterday);
  shop.Drop("ticket.txt", {"0;1;"});
  EXPECT_EQ(RenamesOf(shop), std::vector<std::int64_t>{0});
  EXPECT_EQ(shop.Names("storico_20261115"), Lines{"7.txt"});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(RotationAtStartUp, TriesAgainEverySecondWhileTheFolderIsInUse) {
  Shop shop;
  KeepInHistoric(shop, "7.txt", kYesterday);
  shop.folders.FailNext("Rename", error_number::kPathFileAccess);
  shop.folders.FailNext("Rename", error_number::kPathFileAccess);
  EXPECT_EQ(RenamesOf(shop), (std::vector<std::int64_t>{0, 1, 2}));
  EXPECT_EQ(shop.Err(), (Lines{RenameLine(shop), RenameLine(shop)}));
  EXPECT_EQ(shop.Names("storico_20261115"), Lines{"7.txt"});
}

TEST(RotationAtStartUp, GoesOnAfterFiveRetries) {
  Shop shop;
  KeepInHistoric(shop, "7.txt", kYesterday);
  shop.folders.FailAlways("Rename", "storico", error_number::kPathFileAccess);
  shop.Drop("ticket.txt", {"0;1;"});
  EXPECT_EQ(RenamesOf(shop), (std::vector<std::int64_t>{0, 1, 2, 3, 4, 5}));
  Lines expected(5, RenameLine(shop));
  expected.push_back("Main_Load - 75 - Path/File access error ( " + shop.Spelled("storico\\ )"));
  EXPECT_EQ(shop.Err(), expected);
  EXPECT_EQ(shop.Names("storico"), (Lines{"7.txt", "8.txt"})) << "tickets join the older ones";
}

TEST(RotationAtStartUp, AnyOtherFailureIsLoggedOnceAndPassedOver) {
  Shop shop;
  KeepInHistoric(shop, "7.txt", kYesterday);
  shop.folders.FailAlways("Rename", "storico", error_number::kPermissionDenied);
  shop.Drop("ticket.txt", {"0;1;"});
  EXPECT_EQ(RenamesOf(shop), std::vector<std::int64_t>{0});
  EXPECT_EQ(shop.Err(), Lines{"Main_Load - 70 - Permission denied ( " + shop.Spelled("storico\\") + " )"});
  EXPECT_EQ(shop.Names("storico"), (Lines{"7.txt", "8.txt"}));
}

TEST(RotationAtStartUp, PrintedTicketsAreDeletedWhereTheFolderCannotBeMadeAgain) {
  Shop shop;
  KeepInHistoric(shop, "7.txt", kYesterday);
  shop.folders.FailAlways("Create", "storico", error_number::kPermissionDenied);
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_FALSE(shop.folder.Has("storico"));
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{});
}

}  // namespace
}  // namespace orvenza::test
