#include "device/error_recovery.h"

#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* kPrinted = "Scontrino stampato, continuare";
constexpr const char* kReprint = "Ristampare lo scontrino ( annullare automaticamente )";
constexpr const char* kAbort = "Abortire la stampa dello scontrino";

class ErrorRecoveryTest : public DeviceBench {
 protected:
  Decision Decode(const std::string& text, Choices choices = Choices::kOffered,
                  const std::string& line = "3;Pane") {
    return recovery.DecodeDeviceError(Reply(text, "1003"), line, choices);
  }

  /// The dialog with the choice list, in the form of Shown.
  static std::string ChoiceForm(const std::string& text, const std::string& answer) {
    return "choice \"Orvenza\" \"Attenzione ! Errore ECR :\" \"" + text + "\" (" + kPrinted + "|" + kReprint +
           "|" + kAbort + ") [&Ok] <- " + answer;
  }
  /// The dialog without it.
  static std::string PlainForm(const std::string& heading, const std::string& text,
                               const std::string& answer = "&Ok") {
    return "choice \"Orvenza\" \"" + heading + "\" \"" + text + "\" [&Ok] <- " + answer;
  }
};

TEST_F(ErrorRecoveryTest, AReplyThatIsNoErrorNeedsNothing) {
  for (const char* text : {"3217", "ER", "err08", "3217ERR08"}) {
    EXPECT_EQ(Decode(text), Decision::kNothing) << text;
  }
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Shown(), Lines{});
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(ErrorRecoveryTest, EachCodeShowsItsTextOfTheTable) {
  for (int code = 3; code <= 31; ++code) {
    if (code == 11) continue;
    files.content.clear();
    const std::string text = LoadMessage(EcrErrorMessage(code));
    Answer("&Ok");
    EXPECT_EQ(Decode("ERR" + text.substr(0, 2), Choices::kNone), Decision::kGoOn) << code;
    EXPECT_EQ(Errors(), Lines{"ECR Error : " + text});
    EXPECT_EQ(Last(Shown()), PlainForm("Attenzione ! Errore ECR :", text));
  }
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(ErrorRecoveryTest, TheWrongKeyIsLoggedWithItsCode) {
  Answer("&Ok");
  (void)Decode("ERR08", Choices::kNone);
  EXPECT_EQ(Errors(), Lines{"ECR Error : 08-Tasto Errato"});
}

TEST_F(ErrorRecoveryTest, TheLastTwoCharactersAreTheCode) {
  Answer("&Ok");
  (void)Decode("ERR1712", Choices::kNone);
  EXPECT_EQ(Errors(), Lines{"ECR Error : 12-Dati Inesistenti"});
}

TEST_F(ErrorRecoveryTest, EachOptionIsLoggedAndHasItsResult) {
  struct {
    const char* option;
    Decision decision;
    int number;
  } const rows[] = {
      {kPrinted, Decision::kPrinted, 2}, {kReprint, Decision::kReprint, 3}, {kAbort, Decision::kAbort, 4}};
  for (const auto& row : rows) {
    files.content.clear();
    Answer(row.option);
    EXPECT_EQ(Decode("ERR08"), row.decision);
    EXPECT_EQ(recovery.OperatorChoice, row.number);
    EXPECT_EQ(Errors(),
              (Lines{"ECR Error : 08-Tasto Errato", std::string("Risposta Operatore : ") + row.option}));
    EXPECT_EQ(Last(Shown()), ChoiceForm("08-Tasto Errato", row.option));
  }
}

TEST_F(ErrorRecoveryTest, ReprintingIsSelectedAtFirst) {
  Answer("&Ok");
  EXPECT_EQ(Decode("ERR08"), Decision::kReprint);
  EXPECT_EQ(Last(Errors()), std::string("Risposta Operatore : ") + kReprint);
}

TEST_F(ErrorRecoveryTest, AFormClosedWithoutAChoiceGoesOnAndKeepsTheReply) {
  Answer("close");
  EXPECT_EQ(Decode("ERR08"), Decision::kGoOn);
  EXPECT_EQ(recovery.OperatorChoice, 0);
  EXPECT_EQ(Errors(), Lines{"ECR Error : 08-Tasto Errato"});
}

TEST_F(ErrorRecoveryTest, TheChoiceOfAnEarlierFormDoesNotCount) {
  Answer(kAbort, "&Ok");
  (void)Decode("ERR08");
  person.SetObserver([&](const ShownDialog&, std::string_view) { EXPECT_EQ(recovery.OperatorChoice, 0); });
  EXPECT_EQ(Decode("ERR08", Choices::kNone), Decision::kGoOn);
  EXPECT_EQ(recovery.OperatorChoice, 0);
}

TEST_F(ErrorRecoveryTest, NoReplyIsAnErrorWithItsOwnText) {
  Answer("close");
  EXPECT_EQ(Decode(""), Decision::kGoOn);
  EXPECT_EQ(Errors(), Lines{"Nessuna riposta dal Dispositivo !"});
  EXPECT_EQ(Shown(), Lines{ChoiceForm("Nessuna riposta dal Dispositivo !", "close")});
}

TEST_F(ErrorRecoveryTest, ALinkErrorIsLikeNoReply) {
  for (const char* text : {"ERR-1", "ERR-2", "ERR-3", "ERR.."}) {
    files.content.clear();
    Answer(kPrinted);
    EXPECT_EQ(Decode(text), Decision::kPrinted) << text;
    EXPECT_EQ(Errors(),
              (Lines{"Nessuna riposta dal Dispositivo !", std::string("Risposta Operatore : ") + kPrinted}));
    EXPECT_EQ(Last(Shown()), ChoiceForm("Nessuna riposta dal Dispositivo !", kPrinted));
  }
}

TEST_F(ErrorRecoveryTest, AnInvalidLineIsLoggedAndShown) {
  Answer(kAbort);
  EXPECT_EQ(Decode("ERR**", Choices::kOffered, "3\x7FPan\xE8\t1"), Decision::kAbort);
  EXPECT_EQ(Errors(),
            (Lines{"Riga non valida : 3\x7FPanè 1", std::string("Risposta Operatore : ") + kAbort}));
  EXPECT_EQ(Dialog(0).heading, "Riga non valida : 3 Panè 1");
  EXPECT_EQ(Dialog(0).text, "Riga scontrino non valida !");
  EXPECT_EQ(Dialog(0).options.size(), 3U);
}

TEST_F(ErrorRecoveryTest, ALongInvalidLineIsCutInTheLogAndInTheForm) {
  Answer("close");
  (void)Decode("ERR**", Choices::kNone, std::string(501, 'x'));
  EXPECT_EQ(Errors(), Lines{"Riga non valida : " + std::string(500, 'x') + "..."});
  EXPECT_EQ(Dialog(0).heading, "Riga non valida : " + std::string(60, 'x') + "...");
}

TEST_F(ErrorRecoveryTest, TheJournalPaperFormOnlyConfirms) {
  Answer("&Ok");
  control.Reply("1149");
  control.Reply("3217");
  EXPECT_EQ(Decode("ERR01"), Decision::kGoOn);
  EXPECT_EQ(Errors(), Lines{"Carta Giornale Esaurita !"});
  EXPECT_EQ(Shown(),
            Lines{PlainForm("Attenzione ! Carta Giornale Esaurita !", "Ripristinare la carta e confermare")});
  EXPECT_EQ(Sent(), (Lines{"114900", "321701"}));
  EXPECT_EQ(recovery.OperatorChoice, 0);
}

TEST_F(ErrorRecoveryTest, TheReceiptPaperFormOnlyConfirms) {
  Answer("&Ok");
  control.Reply("1149");
  control.Reply("3217");
  EXPECT_EQ(Decode("ERR02"), Decision::kGoOn);
  EXPECT_EQ(Errors(), Lines{"Carta Scontrino Esaurita !"});
  EXPECT_EQ(Shown(), Lines{PlainForm("Attenzione ! Carta Scontrino Esaurita !",
                                     "Ripristinare la carta e confermare")});
  EXPECT_EQ(Sent(), (Lines{"114900", "321701"}));
}

TEST_F(ErrorRecoveryTest, PrintingRestartsOnlyAfterTheOperatorConfirmed) {
  person.Answer("&Ok", 40s);
  control.Always("1149", "1149");
  control.Always("3217", "3217");
  double restarted = 0;
  faulty.Before("Send", [&](const std::string&) {
    if (restarted == 0) restarted = Elapsed();
  });
  (void)Decode("ERR01");
  EXPECT_EQ(restarted, 40000);
}

TEST_F(ErrorRecoveryTest, APaperFormThatIsClosedRestartsToo) {
  Answer("close");
  control.Reply("1149");
  control.Reply("3217");
  EXPECT_EQ(Decode("ERR01"), Decision::kGoOn);
  EXPECT_EQ(Sent(), (Lines{"114900", "321701"}));
}

TEST_F(ErrorRecoveryTest, ARestartThatFailsGoesOnAnyway) {
  Answer("&Ok");
  for (int i = 0; i < 4; ++i) control.Reply("ERR01");
  EXPECT_EQ(Decode("ERR01"), Decision::kGoOn);
  EXPECT_EQ(Errors(), (Lines{"Carta Giornale Esaurita !", "Impossibile Inviare Riavvio da Fine Carta !"}));
}

TEST_F(ErrorRecoveryTest, ASequenceErrorVoidsTheReceiptUnasked) {
  control.Reply("1028");
  EXPECT_EQ(Decode("ERR11"), Decision::kNothing);
  EXPECT_EQ(Errors(), (Lines{"11-Sequenza Errata", "Annullamento scontrino in corso"}));
  EXPECT_EQ(Shown(), Lines{});
  EXPECT_EQ(Sent(), Lines{"102800"});
}

TEST_F(ErrorRecoveryTest, CodesWithoutATextAreShownWithoutOne) {
  for (const char* code : {"00", "32", "50", "ab", "x9"}) {
    files.content.clear();
    Answer("&Ok");
    EXPECT_EQ(Decode(std::string("ERR") + code, Choices::kNone), Decision::kGoOn) << code;
    EXPECT_EQ(Errors(), Lines{"ECR Error : "}) << code;
    EXPECT_EQ(Last(Shown()), "choice \"Orvenza\" \"Attenzione ! Errore ECR :\" [&Ok] <- &Ok");
  }
}

TEST_F(ErrorRecoveryTest, ACodeBeyondTheTableIsLoggedAndTheOperatorAsked) {
  for (const char* code : {"51", "99"}) {
    files.content.clear();
    Answer(kAbort);
    EXPECT_EQ(Decode(std::string("ERR") + code), Decision::kAbort);
    EXPECT_EQ(Errors(), (Lines{std::string("DecodeDeviceError - 9 - Subscript out of range ( EcrErrorText ") +
                                   code + " )",
                               "ECR Error : ", std::string("Risposta Operatore : ") + kAbort}));
  }
}

TEST_F(ErrorRecoveryTest, TheShopsOwnTextsStandInThePaperForms) {
  files.content["C:\\shop\\ErrDesc.ini"] =
      "[Error "
      "Description]\n110=Giornale\n111=Scontrino\n112=Cambiare\n113=&Fatto\n114=Annullo\n115=G\n116=S\n";
  control.Always("1149", "1149");
  control.Always("1028", "1028");
  control.Always("3217", "3217");
  Answer("&Fatto", "&Fatto");
  (void)Decode("ERR01");
  (void)Decode("ERR02");
  (void)Decode("ERR11");
  EXPECT_EQ(Errors(), (Lines{"G", "S", "11-Sequenza Errata", "Annullo"}));
  EXPECT_EQ(Shown(), (Lines{"choice \"Orvenza\" \"Giornale\" \"Cambiare\" [&Fatto] <- &Fatto",
                            "choice \"Orvenza\" \"Scontrino\" \"Cambiare\" [&Fatto] <- &Fatto"}));
}

TEST_F(ErrorRecoveryTest, TheShopsOwnTextsReplaceNothingElse) {
  files.content["C:\\shop\\ErrDesc.ini"] =
      "[Error Description]\n117=x\n118=x\n119=x\n120=x\n124=x\n126=x\n141=x\n145=x\n508=x\n";
  Answer(kPrinted);
  (void)Decode("ERR08");
  EXPECT_EQ(Errors(),
            (Lines{"ECR Error : 08-Tasto Errato", std::string("Risposta Operatore : ") + kPrinted}));
  EXPECT_EQ(Shown(), Lines{ChoiceForm("08-Tasto Errato", kPrinted)});
}

}  // namespace
}  // namespace orvenza::test
