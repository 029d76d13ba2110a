#include "tickets/ticket_archive.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "core/logs.h"
#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

const char* const kText = "1;a;\r\n";
const char* const kNotArchived = "Scontrino stampato ma non archiviato : ticket.txt";

/// The archive alone, in a shop without a running connector.
class ArchiveTest : public ::testing::Test {
 protected:
  ArchiveTest() {
    settings.TicketMask = "*.txt";
    settings.HistoricFolder = shop.folder.Path("storico\\");
    settings.InProcessFolder = shop.folder.Path("data\\inproces\\");
    settings.AbortFolder = shop.folder.Path("data\\abort\\");
    settings.ErrPath = shop.folder.Path("Err.txt");
    shop.folder.Write("data\\inproces\\ticket.txt", kText);
    EXPECT_TRUE(remembered.Recall());
  }

  /// Puts these files into the historic folder.
  void Keep(const Lines& names) {
    for (const auto& name : names) shop.folder.Write("storico\\" + name, "older");
  }

  std::string InHistoric(const std::string& name) { return shop.folder.Read("storico\\" + name); }
  Lines Historic() { return shop.Names("storico"); }
  Lines Aborted() { return shop.Names("data\\abort"); }
  Lines InProcess() { return shop.Names("data\\inproces"); }

  Shop shop;
  AppSettings settings;
  Logs logs{shop.files, shop.clock, settings, shop.folder.Path()};
  OperatorMessages messages{shop.person, "Orvenza"};
  RememberedTickets remembered{shop.files, logs, shop.folder.Path()};
  TicketWitnesses witnesses;
  TicketArchive archive{shop.files, shop.folders, settings, logs, messages, remembered, witnesses};
  std::string workFile = shop.folder.Path("data\\inproces\\ticket.txt");
};

TEST_F(ArchiveTest, MovesTheTicketIntoAFreshHistoricFolder) {
  archive.Archive(workFile, kText);
  EXPECT_EQ(Historic(), Lines{"1.txt"});
  EXPECT_EQ(InHistoric("1.txt"), "1;a;\r\n");
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(Aborted(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(ArchiveTest, NumbersOneAboveTheLargest) {
  struct Case {
    Lines kept;
    std::string next;
  };
  const Case cases[] = {{{"1.txt"}, "2.txt"},
                        {{"2.txt", "10.txt", "9.txt"}, "11.txt"},
                        {{"0041.txt"}, "42.txt"},
                        {{"7.TXT"}, "8.txt"},
                        {{"12abc.txt"}, "13.txt"},
                        {{"3.9.txt"}, "4.txt"},
                        {{"ticket.txt", ".txt", "-5.txt", "0.txt"}, "1.txt"},
                        {{"7.dat", "8.txt.bak", "9"}, "1.txt"},
                        {{"2147483647.txt"}, "2147483648.txt"},
                        {{"999999999999999.txt"}, "1000000000000000.txt"},
                        {{"999999999999999.txt", "1000000000000000.txt"}, "1000000000000001.txt"},
                        {{"5000000000000000.txt", "5.txt"}, "6.txt"},
                        {{"99999999999999999999999999.txt", "5.txt"}, "6.txt"}};
  for (const Case& row : cases) {
    shop.folder.Remove("storico");
    Keep(row.kept);
    shop.folder.Write("data\\inproces\\ticket.txt", "new");
    archive.Archive(workFile, kText);
    EXPECT_EQ(InHistoric(row.next), "new") << row.next;
    EXPECT_EQ(Historic().size(), row.kept.size() + 1) << row.next << ": nothing was replaced";
  }
}

TEST_F(ArchiveTest, TakesTheExtensionFromTheLastThreeCharactersOfTheMask) {
  const std::pair<std::string, std::string> extensions[] = {
      {"*.dat", "1.dat"},  {"t*.csv", "1.csv"},
      {"*.html", "1.tml"}, {"*.*", "1.txt"},
      {"*", "1.txt"},      {"", "1.txt"},
      {"a.t", "1.a.t"},    {"ticket.???", "1.txt"},
      {"*.TXT", "1.TXT"},  {"ticket_*.d1", "1..d1"},
      {"x", "1.x"},        {"*.tx?", "1.txt"},
  };
  for (const auto& [mask, name] : extensions) {
    shop.folder.Remove("storico");
    shop.folder.Write("data\\inproces\\ticket.txt", "new");
    settings.TicketMask = mask;
    archive.Archive(workFile, kText);
    EXPECT_EQ(Historic(), Lines{name}) << mask;
  }
}

TEST_F(ArchiveTest, CountsTheNumberedNamesEvenWhereTheMaskDoesNotMatchThem) {
  settings.TicketMask = "ticket*.txt";
  Keep({"1.txt", "9.txt"});
  archive.Archive(workFile, kText);
  EXPECT_EQ(InHistoric("10.txt"), "1;a;\r\n");
}

TEST_F(ArchiveTest, MakesEveryLevelOfTheHistoricFolder) {
  settings.HistoricFolder = shop.folder.Path("a\\b\\storico\\");
  archive.Archive(workFile, kText);
  EXPECT_EQ(shop.Names("a\\b\\storico"), Lines{"1.txt"});
}

TEST_F(ArchiveTest, DeletesTheTicketWithoutAHistoricFolder) {
  settings.HistoricFolder = "";
  archive.Archive(workFile, kText);
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(Aborted(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(ArchiveTest, CopiesATicketThatCannotBeMovedAndDeletesIt) {
  shop.files.FailAlways("Move", "storico", error_number::kPathFileAccess);
  archive.Archive(workFile, kText);
  EXPECT_EQ(InHistoric("1.txt"), "1;a;\r\n");
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(ArchiveTest, MakesAReadOnlyTicketWritableBeforeItIsDeleted) {
  shop.Hold("inproces");
  shop.files.Before("ClearAttributes", [&](const std::string&) { shop.files.Heal(); });
  archive.Archive(workFile, kText);
  EXPECT_EQ(Historic(), Lines{"1.txt"});
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(ArchiveTest, AMissingHistoricDriveIsReportedAndTheTicketGoesToTheAbortFolder) {
  settings.HistoricFolder = "Q:\\storico\\";
  shop.Answer("Ok");
  archive.Archive(workFile, kText);
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(shop.Err(), (Lines{kNotArchived, "Drive non disponibile : Q:"}));
  ASSERT_EQ(shop.DialogTexts(), Lines{"Drive non disponibile : Q:"});
  EXPECT_EQ(shop.person.Shown()[0].caption, "Orvenza - Attenzione !");
  EXPECT_EQ(shop.person.Shown()[0].icon, MessageIcon::kStop);
  EXPECT_EQ(shop.person.Shown()[0].buttons, Lines{"Ok"});
}

TEST_F(ArchiveTest, TheTicketIsMovedBeforeTheOperatorIsInformed) {
  settings.HistoricFolder = "Q:\\storico\\";
  shop.Answer("Ok");
  Lines inProcess{"not asked"};
  shop.person.SetObserver([&](const ShownDialog&, std::string_view) { inProcess = InProcess(); });
  archive.Archive(workFile, kText);
  EXPECT_EQ(inProcess, Lines{});
}

TEST_F(ArchiveTest, AHistoricFolderThatCannotBeMadeEndsTheProgram) {
  shop.folders.FailAlways("Create", "storico", error_number::kPathFileAccess);
  shop.Answer("Ok");
  bool unload = false;
  try {
    archive.Archive(workFile, kText);
  } catch (const ProgramEnd& end) {
    unload = end.unload;
  }
  EXPECT_TRUE(unload);
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(InProcess(), Lines{});
  const std::string path = settings.HistoricFolder;
  EXPECT_EQ(shop.Err(), (Lines{"CreateAllDirs 75 - Path/File access error ( " + shop.folder.Path("storico )"),
                               kNotArchived, "Il file INI contiene un percorso errato : " + path}));
  EXPECT_EQ(shop.DialogTexts(), Lines{"Il file INI contiene un percorso errato :\r\n" + path +
                                      "\r\n\r\nIl programma sarà terminato."});
}

TEST_F(ArchiveTest, AFullDiskSendsTheTicketToTheAbortFolder) {
  shop.Fill("storico");
  archive.Archive(workFile, kText);
  EXPECT_EQ(Historic(), Lines{});
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(shop.Err(), (Lines{"Trasmissione 61 - Disk full ( " + workFile + " )", kNotArchived}));
  EXPECT_EQ(shop.DialogTexts(), Lines{}) << "the error log says it";
}

TEST_F(ArchiveTest, AHistoricFolderThatCannotBeListedReplacesNoTicket) {
  Keep({"1.txt"});
  shop.folders.FailAlways("ListFolder", "storico", error_number::kPathFileAccess);
  archive.Archive(workFile, kText);
  EXPECT_EQ(InHistoric("1.txt"), "older");
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
}

TEST_F(ArchiveTest, ATicketThatHasGoneIsOneLineInTheErrorLog) {
  shop.folder.Remove("data\\inproces\\ticket.txt");
  archive.Archive(workFile, kText);
  EXPECT_EQ(shop.Err(), Lines{kNotArchived});
  archive.RetrySettled();
  EXPECT_FALSE(archive.IsSettled(workFile));
}

TEST_F(ArchiveTest, ATicketThatHasGoneAndNeedNotBeKeptIsNoLine) {
  shop.folder.Remove("data\\inproces\\ticket.txt");
  archive.Abort(workFile, kText);
  settings.HistoricFolder.clear();
  archive.Archive(workFile, kText);
  EXPECT_EQ(shop.Err(), Lines{});
  archive.RetrySettled();
  EXPECT_FALSE(archive.IsSettled(workFile));
}

TEST_F(ArchiveTest, ATicketThatWasOnlyOutOfSightGoesToTheAbortFolder) {
  shop.folder.Remove("data\\inproces\\ticket.txt");
  archive.Archive(workFile, kText);
  shop.folder.Write("data\\inproces\\ticket.txt", "1;a;\r\n");
  EXPECT_TRUE(archive.IsSettled(workFile)) << "it must not be printed again";
  archive.RetrySettled();
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
}

TEST_F(ArchiveTest, ATicketThatCannotBeCheckedIsArchivedAnyway) {
  shop.files.FailAlways("Exists", "inproces", error_number::kDeviceError);
  archive.Archive(workFile, kText);
  EXPECT_EQ(Historic(), Lines{"1.txt"});
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(ArchiveTest, ATicketThatCanNeitherBeCheckedNorMovedIsSettled) {
  for (const char* operation : {"Exists", "Move", "Copy"}) {
    shop.files.FailAlways(operation, "inproces", error_number::kDeviceError);
  }
  archive.Archive(workFile, kText);
  archive.RetrySettled();
  EXPECT_TRUE(archive.IsSettled(workFile)) << "it must not be printed again";
  shop.files.Heal();
  archive.RetrySettled();
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
}

TEST_F(ArchiveTest, ATicketWhoseFolderCannotBeCheckedIsSettled) {
  shop.folders.FailAlways("Exists", "inproces", error_number::kDeviceError);
  shop.Fill("storico");
  shop.Fill("abort");
  archive.Archive(workFile, kText);
  archive.RetrySettled();
  EXPECT_TRUE(archive.IsSettled(workFile)) << "it must not be printed again";
}

TEST_F(ArchiveTest, ATicketWhoseFolderCannotBeSeenIsSettled) {
  shop.folder.RenameFolder("data", "elsewhere");
  archive.Archive(workFile, kText);
  shop.folder.RenameFolder("elsewhere", "data");
  EXPECT_TRUE(archive.IsSettled(workFile)) << "it must not be printed again";
}

TEST_F(ArchiveTest, ATicketThatCanGoNowhereIsSettledAndStays) {
  shop.Fill("");
  archive.Archive(workFile, kText);
  EXPECT_EQ(InProcess(), Lines{"ticket.txt"});
  EXPECT_TRUE(archive.IsSettled(workFile));
  EXPECT_FALSE(archive.IsSettled(shop.folder.Path("data\\inproces\\other.txt")));
  const std::string full = "Trasmissione 61 - Disk full ( " + workFile + " )";
  EXPECT_EQ(shop.Err(), (Lines{full, full, kNotArchived}));
}

TEST_F(ArchiveTest, ASettledTicketGoesToTheAbortFolderWhenItCan) {
  shop.Fill("");
  archive.Archive(workFile, kText);
  archive.RetrySettled();
  EXPECT_TRUE(archive.IsSettled(workFile));
  shop.files.Heal();
  archive.RetrySettled();
  EXPECT_FALSE(archive.IsSettled(workFile));
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(InProcess(), Lines{});
}

TEST_F(ArchiveTest, ASettledTicketIsCopiedToTheAbortFolderOnlyOnce) {
  shop.Fill("");
  archive.Archive(workFile, kText);
  shop.files.Heal();
  shop.Hold("inproces");
  int copies = 0;
  shop.files.Before("Copy", [&](const std::string&) { ++copies; });
  for (int tick = 0; tick < 3; ++tick) archive.RetrySettled();
  EXPECT_EQ(copies, 1);
  EXPECT_TRUE(archive.IsSettled(workFile));
}

TEST_F(ArchiveTest, ATicketThatIsArchivedButCannotBeRemovedIsNotCopiedAgain) {
  shop.Hold("inproces");
  archive.Archive(workFile, kText);
  archive.RetrySettled();
  EXPECT_TRUE(archive.IsSettled(workFile));
  shop.files.Heal();
  archive.RetrySettled();
  EXPECT_FALSE(archive.IsSettled(workFile));
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(Historic(), Lines{"1.txt"});
  EXPECT_EQ(Aborted(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{"Trasmissione 70 - Permission denied ( " + workFile + " )"})
      << "the retries are silent";
}

TEST_F(ArchiveTest, ASettledTicketThatIsGoneIsForgotten) {
  shop.Hold("inproces");
  archive.Archive(workFile, kText);
  shop.folder.Remove("data\\inproces\\ticket.txt");
  archive.RetrySettled();
  EXPECT_FALSE(archive.IsSettled(workFile));
  EXPECT_EQ(Aborted(), Lines{});
}

TEST_F(ArchiveTest, ASettledTicketIsNotForgottenWhileItsFolderCannotBeSeen) {
  shop.Hold("inproces");
  archive.Archive(workFile, kText);
  shop.folder.RenameFolder("data", "elsewhere");
  archive.RetrySettled();
  shop.folder.RenameFolder("elsewhere", "data");
  EXPECT_TRUE(archive.IsSettled(workFile));
}

TEST_F(ArchiveTest, AnAbandonedTicketGoesToTheAbortFolder) {
  shop.folder.Write("data\\abort\\other.txt", "older");
  archive.Abort(workFile, kText);
  EXPECT_EQ(Aborted(), (Lines{"other.txt", "ticket.txt.abort.txt"}));
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.txt"), "1;a;\r\n");
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_EQ(Historic(), Lines{});
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(ArchiveTest, AnOlderAbandonedTicketOfTheNameIsKeptUnderANumber) {
  for (const std::string content : {"first", "second", "third"}) {
    shop.folder.Write("data\\inproces\\ticket.txt", content);
    archive.Abort(workFile, kText);
  }
  EXPECT_EQ(Aborted(), (Lines{"ticket.txt.abort.1.txt", "ticket.txt.abort.2.txt", "ticket.txt.abort.txt"}));
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.1.txt"), "first");
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.2.txt"), "second");
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.txt"), "third");
}

TEST_F(ArchiveTest, WhereAnOlderAbandonedTicketCannotBeRenamedTheNewerGetsTheNumber) {
  shop.folder.Write("data\\abort\\ticket.txt.abort.txt", "older");
  shop.files.FailAlways("Move", "abort\\ticket.txt.abort.txt", error_number::kPermissionDenied);
  archive.Abort(workFile, kText);
  EXPECT_EQ(Aborted(), (Lines{"ticket.txt.abort.1.txt", "ticket.txt.abort.txt"}));
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.1.txt"), "1;a;\r\n");
  EXPECT_EQ(shop.folder.Read("data\\abort\\ticket.txt.abort.txt"), "older");
  EXPECT_EQ(InProcess(), Lines{});
  EXPECT_FALSE(archive.IsSettled(workFile));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(ArchiveTest, AMissingAbortFolderIsMade) {
  archive.Abort(workFile, kText);
  EXPECT_EQ(Aborted(), Lines{"ticket.txt.abort.txt"});
}

TEST_F(ArchiveTest, AnAbortFolderThatCannotBeMadeLeavesTheTicketSettled) {
  shop.folders.FailAlways("Create", "abort", error_number::kPathFileAccess);
  archive.Abort(workFile, kText);
  EXPECT_TRUE(archive.IsSettled(workFile));
  EXPECT_EQ(InProcess(), Lines{"ticket.txt"});
  EXPECT_EQ(shop.Err(), Lines{"Trasmissione 75 - Path/File access error ( " + settings.AbortFolder + " )"});
}

TEST_F(ArchiveTest, AMissingAbortDriveIsReportedOnce) {
  settings.AbortFolder = "R:\\abort\\";
  shop.Answer("Ok");
  archive.Abort(workFile, kText);
  archive.RetrySettled();
  EXPECT_TRUE(archive.IsSettled(workFile));
  EXPECT_EQ(shop.Err(), Lines{"Drive non disponibile : R:"});
  EXPECT_EQ(shop.DialogTexts(), Lines{"Drive non disponibile : R:"});
}

TEST_F(ArchiveTest, BothDrivesMissingAreReportedEach) {
  settings.HistoricFolder = "Q:\\storico\\";
  settings.AbortFolder = "R:\\abort\\";
  shop.Answer("Ok");
  shop.Answer("Ok");
  archive.Archive(workFile, kText);
  EXPECT_TRUE(archive.IsSettled(workFile));
  EXPECT_EQ(shop.DialogTexts(), (Lines{"Drive non disponibile : R:", "Drive non disponibile : Q:"}));
}

// The archive in the running program.

TEST(Archiving, ATicketThatCannotBeRemovedIsPrintedOnlyOnce) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("inproces");
  shop.After(55s, [&] { shop.files.Heal(); });
  Lines inProcess;
  shop.After(54s, [&] { inProcess = shop.Names("data\\inproces"); });
  shop.Run(60s);
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
  EXPECT_EQ(inProcess, Lines{"ticket.txt"}) << "more than a hundred ticks later";
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.Err().size(), 1U);
}

TEST(Archiving, ATicketThatCannotBeCheckedOnceItIsReadIsPrintedOnlyOnce) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.files.Before("OpenForReading", [&](const std::string& path) {
    if (!path.ends_with("inproces\\ticket.txt")) return;
    shop.files.FailAlways("Exists", "inproces", error_number::kDeviceError);
    shop.folders.FailAlways("Exists", "inproces", error_number::kDeviceError);
  });
  shop.After(10s, [&] {
    shop.files.Heal();
    shop.folders.Heal();
  });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Names("storico"), Lines{"1.txt"});
}

TEST(Archiving, OtherTicketsArePrintedWhileASettledOneWaits) {
  Shop shop;
  shop.Drop("a.txt", {"0;1;"});
  shop.Drop("b.txt", {"0;2;"});
  shop.Hold("inproces\\a.txt");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"a.txt"});
}

TEST(Archiving, ANewTicketOfASettledOnesNameWaitsUntilThatHasGone) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Hold("inproces");
  shop.After(5s, [&] { shop.Drop("ticket.txt", {"0;2;"}); });
  Lines sentBefore;
  shop.After(20s, [&] {
    sentBefore = shop.SentForTickets();
    shop.files.Heal();
  });
  shop.Run();
  EXPECT_EQ(sentBefore, Lines{"105101"});
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(shop.Names("storico"), (Lines{"1.txt", "2.txt"}));
  EXPECT_EQ(shop.folder.Read("storico\\2.txt"), "0;2;\r\n");
}

TEST(Archiving, TheProgramRunsOnWithoutTheHistoricDrive) {
  Shop shop;
  shop.Configure("Database", "HistoricTickets", "Q:\\storico\\");
  shop.Drop("a.txt", {"0;1;"});
  shop.Drop("b.txt", {"0;2;"});
  shop.Answer("Ok");
  shop.Answer("Ok");
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  EXPECT_EQ(shop.Names("data\\abort"), (Lines{"a.txt.abort.txt", "b.txt.abort.txt"}));
}

TEST(Archiving, AMessageThatCannotBeShownIsLoggedAndPollingGoesOn) {
  Shop shop;
  shop.Configure("Database", "HistoricTickets", "Q:\\storico\\");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Drop("young.txt", {"0;2;"});
  shop.person.SetObserver(
      [](const ShownDialog&, std::string_view) { throw std::runtime_error("no screen"); });
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), (Lines{"105101", "105102"}));
  const std::string young = "Scontrino stampato ma non archiviato : young.txt";
  const std::string drive = "Drive non disponibile : Q:";
  const std::string failure = "Timer1 - 51 - no screen";
  EXPECT_EQ(shop.Err(), (Lines{kNotArchived, drive, failure, young, drive, failure}));
}

TEST(Archiving, AHistoricFolderThatCannotBeMadeEndsTheProgramInOrder) {
  Shop shop;
  shop.Drop("ticket.txt", {"0;1;"});
  shop.folders.FailAlways("Create", "storico", error_number::kPathFileAccess);
  shop.Answer("Ok");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Log().back(), "End");
  EXPECT_EQ(shop.LogForTickets(), (Lines{"Start Scontrino", "End Scontrino"}));
  EXPECT_EQ(shop.icon.deleted, 1);
  EXPECT_EQ(shop.Names("data\\abort"), Lines{"ticket.txt.abort.txt"});
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.status, exit_status::kFolderNotMade);
}

TEST(Archiving, WithoutAHistoricFolderPrintedTicketsAreDeleted) {
  Shop shop;
  shop.Configure("Database", "HistoricTickets", "");
  shop.Drop("ticket.txt", {"0;1;"});
  shop.Run();
  EXPECT_EQ(shop.SentForTickets(), Lines{"105101"});
  EXPECT_EQ(shop.Names("data"), Lines{});
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{});
  EXPECT_EQ(shop.Names("data\\abort"), Lines{});
}

}  // namespace
}  // namespace orvenza::test
