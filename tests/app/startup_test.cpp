#include <gtest/gtest.h>

#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

/// Expects the message with which the program ends.
void ExpectFatal(const ShownDialog& dialog, const std::string& text) {
  EXPECT_EQ(dialog.kind, DialogKind::kMessage);
  EXPECT_EQ(dialog.caption, "Orvenza");
  EXPECT_EQ(dialog.text, text);
  EXPECT_EQ(dialog.icon, MessageIcon::kStop);
  EXPECT_EQ(dialog.buttons, Lines{"Ok"});
}

const std::string kWrongVersion = "\r\nVersione File INI Errata !\r\nApplicazione Terminata.";

/// A program folder without a settings file, as on the first start.
class FirstRun : public testing::Test {
 protected:
  void SetUp() override { shop.folder.Remove("Orvenza.ini"); }
  Shop shop;
};

TEST_F(FirstRun, WritesTheSettingsAndShowsThePortDialogBeforeTheIcon) {
  int iconsWhenAsked = -1;
  shop.person.SetObserver([&](const ShownDialog& dialog, std::string_view) {
    if (dialog.kind == DialogKind::kPortSettings) iconsWhenAsked = shop.icon.created;
  });
  shop.Answer("&Ok");
  shop.Run(5s);
  EXPECT_EQ(iconsWhenAsked, 0);
  EXPECT_EQ(shop.icon.created, 1);
  EXPECT_TRUE(shop.folder.Has("Orvenza.ini"));
  EXPECT_TRUE(shop.folder.Has("ErrDesc.ini"));
}

TEST_F(FirstRun, LogsTheDefaultsThroughTheFallbackFile) {
  shop.Answer("&Ok");
  shop.Run(5s);
  // On a case-insensitive file system the fallback file is the log itself.
  const std::string fallback = shop.folder.Read("log.txt");
  EXPECT_EQ(fallback.substr(0, fallback.find('\n') + 1),
            "WrLog : Path/File access error 75 ( 16/11/2026 09:00:00 - Default INI ! )\r\n");
}

TEST_F(FirstRun, MakesTheWorkingFolders) {
  shop.Answer("&Ok");
  shop.Run(5s);
  EXPECT_TRUE(shop.folder.Has("data"));
  EXPECT_TRUE(shop.folder.Has("data\\inproces"));
  EXPECT_TRUE(shop.folder.Has("data\\abort"));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_F(FirstRun, OpensTheLinkWithThePortJustChosen) {
  shop.Answer("COM7 9600 None 8 1");
  shop.Run(5s);
  EXPECT_EQ(shop.link.Property(LinkProperty::kPortNumber), 7);
  EXPECT_EQ(shop.link.Property(LinkProperty::kBaudRate), 9600);
  EXPECT_NE(shop.folder.Read("Orvenza.ini").find("Settings=9600,N,8,1\r\n"), std::string::npos);
}

TEST_F(FirstRun, InAFolderThatCannotBeWrittenEndsWithAMessage) {
  shop.files.FailAlways("Write", "", 70);
  shop.Answer("Ok");
  shop.RunToItsEnd();
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  ExpectFatal(shop.person.Shown()[0], kWrongVersion);
  EXPECT_EQ(shop.Sent(), Lines{});
  EXPECT_EQ(shop.Messages("error.txt"),
            (Lines{"Main - 70 - Permission denied ( " + shop.folder.Path("Orvenza.ini )"),
                   "Versione File INI Errata !", "Applicazione Terminata."}));
}

TEST_F(FirstRun, OnAFullDiskIsFollowedByAGoodOne) {
  shop.files.FailNext("Write", 61);
  shop.Answer("Ok");
  shop.Run(5s);
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  ExpectFatal(shop.person.Shown()[0], kWrongVersion);
  shop.Answer("&Ok");
  shop.Run(5s);
  EXPECT_EQ(shop.person.Shown().back().kind, DialogKind::kPortSettings);
  EXPECT_NE(shop.folder.Read("Orvenza.ini").find("File Parser=0\r\n"), std::string::npos);
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Startup, LogsStartWithTheReleaseAndEnd) {
  Shop shop;
  shop.Run(5s);
  EXPECT_EQ(shop.Log(),
            (Lines{"Start Rel. 1.0.0", "Dati Cash : 00ORVSIM  01  01.00.00", "Quit Command !", "End"}));
  EXPECT_EQ(shop.folder.Read("Log.txt").substr(0, 40), "16/11/2026 09:00:00 - Start Rel. 1.0.0\r\n");
  EXPECT_EQ(shop.status, exit_status::kInOrder);
}

TEST(Startup, AsksStatusAndIdentityBeforePolling) {
  Shop shop;
  shop.Run(2s);
  EXPECT_EQ(shop.Sent(), (Lines{"321700", "199900"}));
}

TEST(Startup, FirstTicketIsTakenHalfASecondAfterTheRegisterAnswered) {
  Shop shop;
  shop.Drop("a.txt", {"40;1;"});
  std::vector<std::chrono::nanoseconds> sentAt;
  shop.link.SetObserver([&](LineEvent event, const std::string&) {
    if (event == LineEvent::kSent) sentAt.push_back(shop.clock.Uptime());
  });
  shop.Run(5s);
  ASSERT_EQ(sentAt.size(), 4U);  // status, identity, status before the ticket, the ticket's command
  EXPECT_EQ(sentAt[2] - sentAt[1], 500ms);
}

TEST(Startup, ShowsTheIconWithNameAndVersionAndRemovesIt) {
  Shop shop;
  std::string tip;
  shop.After(2s, [&] { tip = shop.icon.Tip().value_or("none"); });
  shop.Run(5s);
  EXPECT_EQ(tip, "Orvenza - 1.0.0");
  EXPECT_EQ(shop.icon.deleted, 1);
  EXPECT_EQ(shop.icon.Tip(), std::nullopt);
}

TEST(Startup, EndIsLoggedOnceTheIconHasGone) {
  Shop shop;
  int deletedBefore = -1;
  shop.files.Before("Append", [&](const std::string& path) {
    if (path.ends_with("\\Log.txt")) deletedBefore = shop.icon.deleted;
  });
  shop.Run(5s);
  EXPECT_EQ(shop.Log().back(), "End");
  EXPECT_EQ(deletedBefore, 1);
}

TEST(Startup, SecondInstanceIsRefusedAndTouchesNothing) {
  Shop shop;
  shop.Answer("Ok");
  shop.RunToItsEnd(true);
  EXPECT_EQ(shop.DialogTexts(), Lines{"Programma già in esecuzione !"});
  EXPECT_EQ(shop.person.Shown()[0].caption, "Orvenza");
  EXPECT_EQ(shop.person.Shown()[0].icon, MessageIcon::kStop);
  EXPECT_EQ(shop.folder.Read("error.txt"), "16/11/2026 09:00:00 - Programma già in esecuzione !\r\n");
  EXPECT_EQ(shop.Names(""), (Lines{"Orvenza.ini", "error.txt"}));
  EXPECT_EQ(shop.icon.created, 0);
  EXPECT_EQ(shop.status, exit_status::kServedAlready);
}

TEST(Startup, SecondInstanceIsToldOnTheScreenFirst) {
  Shop shop;
  shop.Answer("Ok");
  bool loggedBefore = true;
  shop.person.SetObserver(
      [&](const ShownDialog&, std::string_view) { loggedBefore = shop.folder.Has("error.txt"); });
  shop.RunToItsEnd(true);
  EXPECT_FALSE(loggedBefore);
}

TEST(Startup, SecondInstanceThatIsEndedBeforeItsBoxIsAnsweredLogsTheSame) {
  Shop shop;
  shop.person.SetObserver([](const ShownDialog&, std::string_view) { throw ProgramEnd{.unload = true}; });
  shop.RunToItsEnd(true);
  EXPECT_EQ(shop.Messages("error.txt"), Lines{"Programma già in esecuzione !"});
  EXPECT_EQ(shop.Names(""), (Lines{"Orvenza.ini", "error.txt"}));
  EXPECT_EQ(shop.status, exit_status::kServedAlready);
}

TEST(Startup, EndedBeforeTheMainFormIsLoadedLogsNoEnd) {
  Shop shop;
  shop.Configure("Version", "Version", "1.00");
  shop.person.SetObserver([](const ShownDialog&, std::string_view) { throw ProgramEnd{.unload = true}; });
  shop.RunToItsEnd();
  EXPECT_FALSE(shop.folder.Has("log.txt"));
  EXPECT_FALSE(shop.folder.Has("Log.txt"));
}

TEST(Startup, UnknownSettingsVersionEndsTheProgram) {
  Shop shop;
  shop.Configure("Version", "Version", "2.00");
  shop.Answer("Ok");
  shop.RunToItsEnd();
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  ExpectFatal(shop.person.Shown()[0], kWrongVersion);
  EXPECT_EQ(shop.Messages("error.txt"), (Lines{"Versione File INI Errata !", "Applicazione Terminata."}));
  EXPECT_FALSE(shop.folder.Has("Log.txt"));
  EXPECT_EQ(shop.status, exit_status::kSettings);
}

/// Existing settings that cannot be read; the parameter is the operation that fails.
class UnreadableSettings : public testing::TestWithParam<const char*> {
 protected:
  UnreadableSettings() {
    shop.Configure("Com Settings", "ComPort", "3");
    shop.files.FailAlways(GetParam(), "Orvenza.ini", error_number::kDeviceError);
  }
  Shop shop;
};

INSTANTIATE_TEST_SUITE_P(Startup, UnreadableSettings, testing::Values("Exists", "OpenForReading", "Read"));

TEST_P(UnreadableSettings, EndTheStartWithNothingWritten) {
  const std::string before = shop.folder.Read("Orvenza.ini");
  shop.Drop("a.txt", {"0;1;"});
  shop.Answer("Ok");
  shop.RunToItsEnd();
  const std::string path = shop.folder.Path("Orvenza.ini");
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  ExpectFatal(shop.person.Shown()[0],
              "Impossibile leggere il file INI :\r\n" + path + "\r\n\r\nIl programma sarà terminato.");
  EXPECT_EQ(shop.Messages("error.txt"), (Lines{"Main - 57 - Device I/O error ( " + path + " )",
                                               "Impossibile leggere il file INI : " + path}));
  EXPECT_EQ(shop.folder.Read("Orvenza.ini"), before);
  EXPECT_EQ(shop.Names(""), (Lines{"Orvenza.ini", "error.txt"}));
  EXPECT_EQ(shop.Sent(), Lines{});
  EXPECT_EQ(shop.status, exit_status::kSettings);
}

TEST_P(UnreadableSettings, AreTriedAgainForAFewSeconds) {
  const std::string before = shop.folder.Read("Orvenza.ini");
  shop.After(4s, [&] { shop.files.Heal(); });
  shop.Run(10s);
  EXPECT_EQ(shop.folder.Read("Orvenza.ini"), before);
  EXPECT_EQ(shop.link.Property(LinkProperty::kPortNumber), 3);
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST_P(UnreadableSettings, AreNotReplacedByThePortDialog) {
  const std::string before = shop.folder.Read("Orvenza.ini");
  shop.files.Heal();
  shop.Answer("COM7 9600 None 8 1");
  shop.After(5s, [&] {
    shop.files.FailAlways(GetParam(), "Orvenza.ini", error_number::kDeviceError);
    shop.UseMenu(MenuItem::kConfigure);
    shop.files.Heal();
  });
  shop.Run(10s);
  EXPECT_EQ(shop.link.Property(LinkProperty::kPortNumber), 7);
  const std::string after = shop.folder.Read("Orvenza.ini");
  EXPECT_TRUE(after == before || after.find("ComPort=7\r\n") != std::string::npos) << after;
  EXPECT_NE(after.find("Version=1.06"), std::string::npos);
}

TEST(Startup, OldSettingsAreUpgradedWithOneBoxAStep) {
  Shop shop;
  shop.Configure("Version", "Version", "1.00");
  shop.Answer("Ok");
  shop.Answer("Ok");
  shop.Run(5s);
  const std::string done = "Aggiornamento del file INI effettuato con successo !";
  EXPECT_EQ(shop.DialogTexts(), (Lines{done, done}));
  EXPECT_EQ(shop.person.Shown()[0].caption, "Orvenza");
  EXPECT_EQ(shop.person.Shown()[0].icon, MessageIcon::kInformation);
  EXPECT_EQ(shop.person.Shown()[0].buttons, Lines{"Ok"});
}

TEST(Startup, TicketFolderOnAMissingDriveEndsTheProgram) {
  Shop shop;
  shop.Configure("Database", "TicketFiles", "Q:\\in\\*.txt");
  shop.Answer("Ok");
  shop.RunToItsEnd();
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  ExpectFatal(shop.person.Shown()[0],
              "Il file INI contiene un percorso errato :\r\nQ:\\in\\\r\n\r\nIl programma sarà terminato.");
  EXPECT_EQ(shop.Log(), (Lines{"Start Rel. 1.0.0", "End"}));
  EXPECT_EQ(shop.Err().back(), "Il file INI contiene un percorso errato : Q:\\in\\");
  EXPECT_EQ(shop.icon.created, 0);
  EXPECT_EQ(shop.status, exit_status::kFolderNotMade);
}

TEST(Startup, PortIsOpenedBeforeTheTicketFolderIsMissed) {
  Shop shop;
  shop.Configure("Database", "TicketFiles", "Q:\\in\\*.txt");
  Lines events;
  shop.link.SetObserver([&](LineEvent event, const std::string& text) {
    if (event == LineEvent::kPort) events.push_back("port " + text);
  });
  shop.person.SetObserver([&](const ShownDialog&, std::string_view answer) {
    events.push_back(answer.empty() ? "message" : "answer");
  });
  shop.Answer("Ok");
  shop.RunToItsEnd();
  EXPECT_EQ(events, (Lines{"port open", "message", "answer"}));
}

TEST(Startup, DeepTicketFolderIsMadeLevelByLevel) {
  Shop shop;
  shop.Configure("Database", "TicketFiles", shop.folder.Path("a\\b\\c\\*.txt"));
  shop.Run(5s);
  EXPECT_TRUE(shop.folder.Has("a\\b\\c\\inproces"));
  EXPECT_TRUE(shop.folder.Has("a\\b\\c\\abort"));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(Startup, WorkFoldersExistBeforeTheRegisterIsIdentified) {
  Shop shop;
  bool inProcess = false;
  bool abort = false;
  shop.link.SetObserver([&](LineEvent event, const std::string& text) {
    if (event != LineEvent::kSent || text != "199900") return;
    inProcess = shop.folder.Has("data\\inproces");
    abort = shop.folder.Has("data\\abort");
  });
  shop.Run(5s);
  EXPECT_TRUE(inProcess);
  EXPECT_TRUE(abort);
}

TEST(Startup, ErrorTextsThatCannotBeWrittenAreLoggedAndStartUpGoesOn) {
  Shop shop;
  shop.files.FailAlways("Write", "ErrDesc", 61);
  shop.Run(5s);
  EXPECT_EQ(shop.Err(), Lines{"Main - 61 - Disk full ( " + shop.folder.Path("ErrDesc.ini )")});
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Startup, ErrorTextsThatCannotBeCheckedAreNotReplaced) {
  Shop shop;
  shop.folder.Write("ErrDesc.ini", "own");
  shop.files.FailAlways("Exists", "ErrDesc.ini", error_number::kDeviceError);
  shop.Run(5s);
  EXPECT_EQ(shop.folder.Read("ErrDesc.ini"), "own");
  EXPECT_EQ(shop.Err(), Lines{"Main - 57 - Device I/O error ( " + shop.folder.Path("ErrDesc.ini )")});
}

TEST(Startup, RemovesWhatAPowerCutLeftHalfWritten) {
  Shop shop;
  const Lines left = {"Orvenza.ini.orv~", "data\\inproces\\a.txt.orv~", "data\\abort\\a.txt.orv~",
                      "data\\zz.txt.orv~", "storico\\1.txt.orv~"};
  for (const std::string& name : left) shop.folder.Write(name, "half");
  shop.folder.Write("other\\b.txt.orv~", "not ours");
  shop.Run(5s);
  for (const std::string& name : left) EXPECT_FALSE(shop.folder.Has(name)) << name;
  EXPECT_TRUE(shop.folder.Has("other\\b.txt.orv~"));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(Startup, ASecondInstanceRemovesNothingThatIsBeingWritten) {
  Shop shop;
  shop.folder.Write("Orvenza.ini.orv~", "half");
  shop.Answer("Ok");
  shop.RunToItsEnd(true);
  EXPECT_TRUE(shop.folder.Has("Orvenza.ini.orv~"));
}

TEST(Startup, ErrorTextsOfTheShopAreKeptAndShown) {
  Shop shop("on 1051 reply ERR01\n");
  const std::string texts = "[Error Description]\r\n110=Carta finita\r\n113=&Fatto\r\n";
  shop.folder.Write("ErrDesc.ini", texts);
  shop.Drop("a.txt", {"0;1;"});
  shop.Answer("Fatto");
  shop.Run(20s);
  EXPECT_EQ(shop.folder.Read("ErrDesc.ini"), texts);
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  EXPECT_EQ(shop.person.Shown()[0].heading, "Carta finita");
  EXPECT_EQ(shop.person.Shown()[0].text, "Ripristinare la carta e confermare");
  EXPECT_EQ(shop.person.Shown()[0].buttons, Lines{"&Fatto"});
}

TEST(Startup, MenuDoesNothingBeforeThereIsAnIcon) {
  Shop shop("port-fails 1\n");
  for (const char* answer : {"menu Esci", "menu Utilita'", "menu Configura", "Riprova"}) shop.Answer(answer);
  shop.Run(5s);
  ASSERT_EQ(shop.person.Shown().size(), 1U);
  EXPECT_EQ(shop.person.Shown()[0].answer, "menu Esci, menu Utilita', menu Configura, Riprova");
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Startup, WorkFolderThatCannotBeMadeIsLoggedAndStartUpGoesOn) {
  Shop shop;
  shop.folders.FailAlways("Create", "abort", 75);
  shop.Run(5s);
  EXPECT_EQ(shop.Err(), Lines{"Main_Load - 75 - Path/File access error ( " +
                              SettingsPath(shop.folder.Path()) + "\\data\\abort\\ )"});
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Startup, RenameOfAHistoricFolderInUseIsRetriedFiveTimesAndStartUpGoesOn) {
  Shop shop;
  shop.folder.Write("storico\\1.txt", "old");
  shop.folder.SetModified("storico\\1.txt", 1'700'000'000);
  shop.folders.FailAlways("Rename", "storico", 75);
  std::chrono::nanoseconds opened{};
  shop.link.SetObserver([&](LineEvent event, const std::string& text) {
    if (event == LineEvent::kPort && text == "open") opened = shop.clock.Uptime();
  });
  shop.Run(20s);
  const std::string line =
      "Main - Tentativo di rinominare cartella scontrini storici : " + SettingsPath(shop.folder.Path()) +
      "\\storico\\";
  Lines expected(5, line);
  expected.push_back("Main_Load - 75 - Path/File access error ( " + SettingsPath(shop.folder.Path()) +
                     "\\storico\\ )");
  EXPECT_EQ(shop.Err(), expected);
  EXPECT_EQ(opened, 5s);
}

TEST(Startup, RenameOfAHistoricFolderSucceedsOnceItIsFree) {
  Shop shop;
  shop.folder.Write("storico\\1.txt", "old");
  shop.folder.SetModified("storico\\1.txt", 1'700'000'000);
  shop.folders.FailNext("Rename", 75);
  shop.Run(20s);
  EXPECT_EQ(shop.Err().size(), 1U);
  EXPECT_EQ(shop.Names("storico_20231114"), Lines{"1.txt"});
}

TEST(Startup, RegisterGivenUpByTheOperatorEndsTheProgram) {
  Shop shop("absent 1000\n");
  for (const char* answer : {"Ok", "Ok", "Ok", "Annulla", "Sì"}) shop.Answer(answer);
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Log(), (Lines{"Start Rel. 1.0.0", "End"}));
  EXPECT_EQ(shop.Err().back(), "Collegamento Annullato dall'Operatore");
  EXPECT_EQ(shop.icon.Tip(), std::nullopt);
  EXPECT_EQ(shop.Sent(), Lines{});
  EXPECT_EQ(shop.status, exit_status::kInOrder) << "as the operator asked";
}

TEST(Startup, RegisterThatDoesNotSayWhatItIsAndIsGivenUpEndsTheProgram) {
  Shop shop("on 1999 silence\n");
  for (const char* answer : {"Annulla", "Sì"}) shop.Answer(answer);
  shop.Run(60s);
  EXPECT_EQ(shop.Sent(), (Lines{"321700", "199900"}));
  EXPECT_EQ(shop.Log(), (Lines{"Start Rel. 1.0.0", "End"}));
  EXPECT_EQ(shop.Err(),
            (Lines{"Nessuna risposta dal Dispositivo !", "Collegamento Annullato dall'Operatore"}));
  EXPECT_EQ(shop.icon.Tip(), std::nullopt);
}

TEST(Startup, RegisterSwitchedOnAfterAnAlarmIsUsed) {
  Shop shop("absent 1\n");
  shop.Answer("Ok");
  shop.Run(5s);
  EXPECT_EQ(shop.DialogTexts(), Lines{"Dispositivo Spento o Non Collegato !"});
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(Startup, PortThatDoesNotOpenAndIsGivenUpEndsAtOnce) {
  Shop shop("port-fails 1000\n");
  shop.Answer("Annulla");
  shop.Answer("Sì");
  shop.RunToItsEnd();
  EXPECT_EQ(shop.Err(),
            (Lines{"Apertura Porta non Riuscita ! ( COM1 )", "Collegamento Annullato dall'Operatore"}));
  EXPECT_EQ(shop.Log(), Lines{"Start Rel. 1.0.0"});
}

TEST(Startup, OpenReceiptIsVoidedBeforeTheRegisterIsIdentified) {
  Shop shop("on 3217 reply ERR17\n");
  shop.Answer("Ok");
  shop.Run(10s);
  EXPECT_EQ(shop.DialogTexts(), Lines{"Invio Annullo in corso... Attendere\r\nControllare chiave Cash !"});
  EXPECT_EQ(shop.Sent()[1], "102800");
}

}  // namespace
}  // namespace orvenza::test
