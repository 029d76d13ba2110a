// Drives the finished terminal program like a person and a host application.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/build_version.h"
#include "core/version.h"
#include "program/running_program.h"
#include "program/shop_folder.h"
#include "support/temp_folder.h"

namespace orvenza::test {
namespace {

const std::string kCaption = std::string("Orvenza - ") + kVersionText;

constexpr const char* kTicket = "1;Caffe' espresso;2,000;120;1;;;1;;\r\n2;1;500;\r\n";

TEST(Program, TellsItsVersion) {
  RunningProgram program({kProgram, "--version"});
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_EQ(program.Shown(), "Orvenza " + BuildVersion() + "\n");
}

TEST(Program, ShowsItsHelp) {
  RunningProgram program({kProgram, "--help"});
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_TRUE(program.Shown().starts_with("Usage: Orvenza [--folder DIR] [--simulate [SCRIPT]]\n"));
}

TEST(Program, RefusesWhatItCannotStartWith) {
  const TempFolder folder;
  folder.Write("bad.script", "speed instant\nspeed fast\npace 0\n");
  const std::string bad = folder.Path() + "/bad.script";
  const std::string none = folder.Path() + "/none";
  const struct {
    Lines options;
    std::string reason;
  } kRefused[] = {
      {{},
       "this system has no link control, so no register can be reached; use --simulate for a simulated one"},
      {{"--nope"}, "unknown option '--nope'\nSee 'Orvenza --help'."},
      {{"--folder"}, "option '--folder' needs a value: --folder DIR\nSee 'Orvenza --help'."},
      {{"--folder", folder.Path(), "--simulate", bad},
       bad + ":2: expected bits a second, or \"instant\"\nOrvenza: " + bad +
           ":3: expected how many times as fast, 1 to 100"},
      {{"--folder", folder.Path(), "--simulate", none}, none + ":1: expected a file that can be read"},
      {{"--folder", bad, "--simulate"}, bad + " is not a folder"},
  };
  for (const auto& [options, reason] : kRefused) {
    Lines words{kProgram};
    words.insert(words.end(), options.begin(), options.end());
    RunningProgram program(words);
    EXPECT_EQ(program.ExitStatus(), 2) << reason;
    EXPECT_EQ(program.Shown(), "Orvenza: " + reason + "\n");
  }
  EXPECT_FALSE(folder.Has("Orvenza.ini"));
}

TEST(Program, RefusesAFolderThatDoesNotExist) {
  const TempFolder folder;
  RunningProgram program({kProgram, "--folder", folder.Path() + "/none", "--simulate"});
  EXPECT_EQ(program.ExitStatus(), 2);
  EXPECT_EQ(program.Shown(), "Orvenza: " + folder.Path() + "/none is not a folder\n");
}

TEST(Program, TheFirstStartAsksForThePortAndMakesTheShop) {
  const NewShop shop;
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("Configurazione Parametri Porta COM") && program.Shows("Invio"));
  program.Enter("1");
  ASSERT_TRUE(program.Shows("COM16") && program.Shows("Invio"));
  program.Enter("COM3");
  ASSERT_TRUE(program.Shows("COM3") && program.Shows("Invio"));
  program.Enter("");
  ASSERT_TRUE(
      program.Shows(kCaption + " in funzione: scontrini in " + shop.folder.Path() +
                    "/data/*.txt, separatore carattere 127. Menu: m + Invio - Registratore: r + Invio\n"));
  shop.Quit();
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_NE(shop.folder.Read("Orvenza.ini").find("ComPort=3\r\n"), std::string::npos);
  EXPECT_NE(shop.folder.Read("ErrDesc.ini").find("[Error Description]\r\n"), std::string::npos);
  EXPECT_NE(shop.folder.Read("log.txt").find("Default INI !"), std::string::npos);
  EXPECT_TRUE(shop.folder.Has("data\\inproces") && shop.folder.Has("data\\abort"));
}

TEST(Program, NamesItsSettingsFileAfterItself) {
  const NewShop shop;
  const std::string renamed = shop.folder.Path() + "/Cassa";
  std::filesystem::copy_file(kProgram, renamed);
  RunningProgram program({renamed, "--simulate", shop.folder.Path() + "/register.script"});
  ASSERT_TRUE(program.Shows("Configurazione Parametri Porta COM") && program.Shows("Invio"));
  program.Enter("");
  ASSERT_TRUE(program.Shows(std::string("Cassa - ") + kVersionText + " in funzione")) << program.Shown();
  shop.Quit();
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_TRUE(shop.folder.Has("Cassa.ini"));
  EXPECT_FALSE(shop.folder.Has("Orvenza.ini"));
}

TEST(Program, PrintsATicketAndArchivesIt) {
  const Shop shop;
  shop.folder.Write("register.script", "speed instant\npaper carta.txt\n");
  shop.Drop("0001.txt", kTicket);
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("    |RESTO                               2,60\n")) << program.Shown();
  shop.Quit();
  ASSERT_EQ(program.ExitStatus(), 0);
  EXPECT_EQ(shop.folder.Read("storico\\1.txt"), kTicket);
  EXPECT_FALSE(shop.folder.Has("data\\0001.txt") || shop.folder.Has("data\\inproces\\0001.txt"));
  EXPECT_NE(shop.folder.Read("carta.txt").find("Caffe' espresso                     2,40\n"),
            std::string::npos);
  EXPECT_EQ(shop.Journal("Log.txt"),
            (Lines{std::string("Start Rel. ") + kVersionText, "Dati Cash : 00ORVSIM  01  01.00.00",
                   "Start Scontrino", "End Scontrino", "Quit Command !", "End"}));
}

TEST(Program, ThePaceOfTheScriptShortensItsWaits) {
  const Shop shop;
  shop.folder.Write("register.script", "speed instant\npace 100\non 1003 x* late 10000\n");
  const std::string item = "1;Caffe' espresso;1,000;120;1;;;1;;\r\n";
  const std::string ticket = item + item + item + item + "2;1;500;\r\n";  // more than 40 s at its own pace
  shop.Drop("0001.txt", ticket);
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("    |RESTO                               0,20\n")) << program.Shown();
  shop.Quit();
  ASSERT_EQ(program.ExitStatus(), 0);
  EXPECT_EQ(shop.folder.Read("storico\\1.txt"), ticket);
  EXPECT_EQ(shop.folder.Read("Err.txt"), "");
}

TEST(Program, TheOperatorGivesUpATicketWithARejectedLine) {
  const Shop shop;
  shop.Drop("0001.txt", "77;rubbish;\r\n");
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("Riga non valida : 77;rubbish;") && program.Shows("Invio")) << program.Shown();
  program.Enter("3");
  ASSERT_TRUE(program.Shows("Risposta: Abortire la stampa dello scontrino"));
  shop.Quit();
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_EQ(shop.folder.Read("data\\abort\\0001.txt.abort.txt"), "77;rubbish;\r\n");
  EXPECT_FALSE(shop.folder.Has("storico\\1.txt"));
}

TEST(Program, ItsPanelSwitchesTheRegisterWhileADialogWaits) {
  const Shop shop;
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("in funzione"));
  program.Enter("r");
  ASSERT_TRUE(program.Shows("(nessuna riga stampata)") && program.Shows("solo Invio: chiudi"));
  program.Enter("chiave");
  ASSERT_TRUE(program.Shows("Chiave: ASSENTE\n"));
  program.Enter("");
  shop.Drop("0001.txt", kTicket);
  ASSERT_TRUE(program.Shows("17-Impossibile Ora") && program.Shows("r: registratore)")) << program.Shown();
  program.Enter("r");
  ASSERT_TRUE(program.Shows("[5] Chiave: ASSENTE") && program.Shows("solo Invio: chiudi"));
  program.Enter("5");
  ASSERT_TRUE(program.Shows("Chiave: presente\n"));
  program.Enter("x");
  ASSERT_TRUE(program.Shows("17-Impossibile Ora") && program.Shows("Invio"));
  program.Enter("2");
  ASSERT_TRUE(program.Shows("SCONTRINO N. 1")) << program.Shown();
  program.Enter("r");
  ASSERT_TRUE(program.Shows("Scontrini: 1") && program.Shows("solo Invio: chiudi"));
  program.Enter("s");
  ASSERT_TRUE(program.Shows("Rotolo salvato : rotolo-"));
  shop.Quit();
  EXPECT_EQ(program.ExitStatus(), 0);
}

TEST(Program, EndsByTheMenuOnceConfirmed) {
  const Shop shop;
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("in funzione"));
  program.Enter("m");
  ASSERT_TRUE(program.Shows("[1] Esci") && program.Shows("Invio"));
  program.Enter("Esci");
  ASSERT_TRUE(program.Shows("Sei sicuro ?") && program.Shows("Invio"));
  program.Enter("Si");
  EXPECT_TRUE(program.Shows(kCaption + " terminato."));
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_EQ(shop.Journal("Log.txt").back(), "End");
}

TEST(Program, StaysWhenTheEndIsNotConfirmed) {
  const Shop shop;
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("in funzione"));
  program.Enter("m");
  ASSERT_TRUE(program.Shows("[1] Esci") && program.Shows("Invio"));
  program.Enter("1");
  ASSERT_TRUE(program.Shows("Sei sicuro ?") && program.Shows("Invio"));
  program.Enter("No");
  ASSERT_TRUE(program.Shows("Risposta: No"));
  shop.Drop("0001.txt", kTicket);
  EXPECT_TRUE(program.Shows("SCONTRINO N. 1")) << program.Shown();
}

TEST(Program, TheHostEndsItByCommandFile) {
  const Shop shop;
  shop.Quit();
  RunningProgram program(shop.Command());
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_TRUE(program.Shows(kCaption + " terminato."));
  EXPECT_FALSE(shop.folder.Has("command.txt"));
}

TEST(Program, ASecondOneInTheSameFolderIsRefused) {
  const Shop shop;
  RunningProgram first(shop.Command());
  ASSERT_TRUE(first.Shows("in funzione"));
  const std::string logBefore = shop.folder.Read("Log.txt");
  RunningProgram second(shop.Command());
  ASSERT_TRUE(second.Shows("Programma già in esecuzione !") && second.Shows("Invio")) << second.Shown();
  second.Enter("");
  EXPECT_EQ(second.ExitStatus(), 3);
  EXPECT_EQ(shop.Journal("error.txt"), Lines{"Programma già in esecuzione !"});
  EXPECT_EQ(shop.folder.Read("Log.txt").substr(0, logBefore.size()), logBefore);
  EXPECT_EQ(second.Shown().find("in funzione"), std::string::npos);
  shop.Drop("0001.txt", kTicket);
  EXPECT_TRUE(first.Shows("SCONTRINO N. 1")) << first.Shown();
}

TEST(Program, ASecondOneInAnotherFolderRuns) {
  const Shop shop;
  const Shop other;
  RunningProgram first(shop.Command());
  RunningProgram second(other.Command());
  EXPECT_TRUE(first.Shows("in funzione") && second.Shows("in funzione"));
}

TEST(Program, GoesOnPrintingWhenItsInputEnds) {
  const Shop shop;
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("in funzione"));
  program.CloseInput();
  shop.Drop("0001.txt", kTicket);
  EXPECT_TRUE(program.Shows("SCONTRINO N. 1")) << program.Shown();
  shop.Quit();
  EXPECT_EQ(program.ExitStatus(), 0);
}

TEST(Program, ADialogThatCannotBeAnsweredClosesByItself) {
  const NewShop shop;
  RunningProgram program(shop.Command());
  program.CloseInput();
  EXPECT_TRUE(program.Shows("Configurazione Parametri Porta COM"));
  EXPECT_TRUE(program.Shows("Chiuso senza risposta."));
  EXPECT_TRUE(program.Shows("in funzione")) << program.Shown();
}

TEST(Program, SignalsEndItInGoodOrder) {
  for (const int signal : {SIGTERM, SIGINT}) {
    const Shop shop;
    RunningProgram program(shop.Command());
    ASSERT_TRUE(program.Shows("in funzione"));
    program.Send(signal);
    EXPECT_TRUE(program.Shows(kCaption + " terminato."));
    EXPECT_EQ(program.ExitStatus(), 0) << signal;
    EXPECT_EQ(shop.Journal("Log.txt").back(), "End");
  }
}

TEST(Program, ASignalEndsItWhileADialogWaits) {
  const NewShop shop;
  RunningProgram program(shop.Command());
  ASSERT_TRUE(program.Shows("Configurazione Parametri Porta COM") && program.Shows("Invio"));
  program.Send(SIGTERM);
  EXPECT_EQ(program.ExitStatus(), 0);
  EXPECT_EQ(shop.Journal("Log.txt").back(), "End");
}

}  // namespace
}  // namespace orvenza::test
