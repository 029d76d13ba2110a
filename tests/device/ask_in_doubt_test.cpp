// The dialogues with the register when the settings ask the operator wherever something is in doubt.

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "device/logo_download.h"
#include "device/logo_files.h"
#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

const char* const kPrinted = "Scontrino stampato, continuare";
const char* const kReprint = "Ristampare lo scontrino ( annullare automaticamente )";
const char* const kAbort = "Abortire la stampa dello scontrino";
const std::string kForeign =
    "message \"Orvenza - Attenzione !\" \"Alla cassa risulta aperto un altro scontrino.\\r\\n"
    "È stato chiuso alla cassa ? ( No : viene annullato )\" [Sì|No] <- ";

class AskInDoubtTest : public DeviceBench {
 protected:
  AskInDoubtTest() { settings.AskInDoubt = true; }

  void Replies(const Lines& replies) {
    for (const auto& reply : replies) control.Reply(reply);
  }
  void NoReplies(int count) {
    for (int i = 0; i < count; ++i) control.NoReply();
  }
  Decision Decode(const std::string& text) {
    return recovery.DecodeDeviceError(Reply(text, "1004"), "1;PANE;", Choices::kOffered);
  }
};

using StatusInDoubt = AskInDoubtTest;
using RestartInDoubt = AskInDoubtTest;
using VoidInDoubt = AskInDoubtTest;
using RecoveryInDoubt = AskInDoubtTest;
using LogoInDoubt = AskInDoubtTest;
using QueriesInDoubt = AskInDoubtTest;
using LinkInDoubt = AskInDoubtTest;

TEST_F(StatusInDoubt, TenUnreadableRepliesAreAQuestionAndTheLinkIsReopened) {
  for (const char* reply : {"200100", "ERR05", "ERR-1"}) {
    for (int i = 0; i < 10; ++i) control.Reply(reply);
    control.Reply("ERR17");
    Answer("Riprova");
    const std::size_t before = Sent().size();
    const CashStatus status = cash.QueryCashStatus();
    EXPECT_TRUE(status.receiptOpen) << reply;
    EXPECT_TRUE(status.read);
    EXPECT_EQ(Last(Shown()), RetryQuestion("Impossibile leggere stato Cash !", "Riprova"));
    EXPECT_EQ(Sent().size() - before, 11U);
    EXPECT_EQ(Last(control.calls), "open 1");
  }
}

TEST_F(StatusInDoubt, TheOperatorMayEndTheProgramInstead) {
  Answer("Annulla", "Sì");
  EXPECT_THROW((void)cash.QueryCashStatus(), ProgramEnd);
  EXPECT_EQ(Sent(), Lines(10, "321701"));
  EXPECT_EQ(Last(Errors()), "Collegamento Annullato dall'Operatore");
}

TEST_F(StatusInDoubt, AnEndThatIsNotConfirmedTriesAgain) {
  NoReplies(10);
  control.Reply("3217");
  Answer("Annulla", "No");
  EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Last(Shown()).substr(Last(Shown()).size() - 2), "No");
}

TEST_F(StatusInDoubt, TheEndOfTheProgramComesBeforeTheQuestion) {
  EndAfter(1s);
  EXPECT_THROW((void)cash.QueryCashStatus(), ProgramEnd);
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(StatusInDoubt, WhileThePaperIsOutTheQuestionSaysSoAndTheRestartIsSentAgain) {
  const struct {
    const char* reply;
    const char* paper;
  } rows[] = {{"ERR01", "Attenzione ! Carta Giornale Esaurita !"},
              {"ERR02", "Attenzione ! Carta Scontrino Esaurita !"}};
  for (const auto& row : rows) {
    control.sent.clear();
    for (int i = 0; i < 10; ++i) control.Reply(row.reply);
    Replies({"1149", "3217"});
    Answer("Riprova");
    EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
    EXPECT_EQ(Last(Shown()),
              "message \"Orvenza - Attenzione, Errori di Comunicazione !\" \"" + std::string(row.paper) +
                  " Ripristinare la carta e confermare\" [Riprova|Annulla|Configura] <- Riprova");
    Lines sent(10, "321701");
    sent.insert(sent.end(), {"114900", "321701"});
    EXPECT_EQ(Sent(), sent);
  }
}

TEST_F(RestartInDoubt, OnlyItsOwnReplyIsAccepted) {
  control.NoReply();
  Replies({"200100", "ERR-2", "1149", "3217"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "114900", "114900", "114900", "321701"}));
  EXPECT_EQ(Errors(), (Lines{"ECR Error : ", "ECR Error : 200100", "ECR Error : ERR-2"}));
}

TEST_F(RestartInDoubt, AfterFourAttemptsTheStatusSaysWhetherItArrived) {
  NoReplies(4);
  control.Reply("ERR17");
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "114900", "114900", "114900", "321701"}));
  EXPECT_EQ(Last(Errors()), "Impossibile Inviare Riavvio da Fine Carta !");
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(VoidInDoubt, ASilentVoidIsRepeated) {
  control.NoReply();
  Replies({"200100", "1028"});
  EXPECT_TRUE(cash.InvioVOID().Is(Reply::Kind::kDone));
  EXPECT_EQ(Sent(), (Lines{"102800", "102800", "102800"}));
}

TEST_F(VoidInDoubt, AForeignReceiptIsVoidedOnlyAfterANo) {
  Replies({"ERR17", "ERR17", "ERR17", "1028", "3217"});
  Answer("Sì", "close", "No");
  EXPECT_TRUE(cash.CloseReceiptLeftOpen());
  EXPECT_EQ(Sent(), (Lines{"321701", "321701", "321701", "102800", "321701"}));
  EXPECT_EQ(Shown(), (Lines{kForeign + "Sì", kForeign + "close", kForeign + "No"}));
  EXPECT_EQ(
      Errors(),
      (Lines{"Alla cassa risulta aperto un altro scontrino.", "Alla cassa risulta aperto un altro scontrino.",
             "Alla cassa risulta aperto un altro scontrino.", "Annullamento scontrino in corso"}));
  // The answer was about that receipt only.
  EXPECT_FALSE(cash.ReceiptIsOurs);
}

TEST_F(VoidInDoubt, AClosedQuestionIsNoYes) {
  Replies({"ERR17", "3217"});
  Answer("close");
  EXPECT_TRUE(cash.CloseReceiptLeftOpen());
  EXPECT_EQ(Sent(), (Lines{"321701", "321701"}));
}

TEST_F(VoidInDoubt, OurOwnReceiptIsVoidedUnasked) {
  cash.ReceiptIsOurs = true;
  Replies({"ERR17", "1028", "3217"});
  EXPECT_TRUE(cash.CloseReceiptLeftOpen());
  EXPECT_EQ(Sent(), (Lines{"321701", "102800", "321701"}));
  EXPECT_EQ(Shown(), Lines{});
  EXPECT_FALSE(cash.ReceiptIsOurs);
}

TEST_F(VoidInDoubt, AReceiptThatStaysOpenIsNeverLeft) {
  cash.ReceiptIsOurs = true;
  control.Always("3217", "ERR17");
  control.Always("1028", "ERR08");
  control.Always("1036", "ERR08");
  Answer("No");
  clock.After(15s, [this] { loop.RequestEnd({.unload = true}); });
  Answer("No", "No", "No", "No", "No", "No", "No", "No");
  EXPECT_THROW((void)cash.CloseReceiptLeftOpen(), ProgramEnd);
}

TEST_F(RecoveryInDoubt, AFormClosedWithoutAChoiceComesAgain) {
  Answer("close", "Ok", "close", kAbort);
  EXPECT_EQ(Decode(""), Decision::kAbort);
  EXPECT_EQ(Shown().size(), 4U);
  EXPECT_EQ(Errors(),
            (Lines{"Nessuna riposta dal Dispositivo !", std::string("Risposta Operatore : ") + kAbort}));
}

TEST_F(RecoveryInDoubt, NoChoiceIsSelectedAtFirst) {
  Answer(kPrinted);
  EXPECT_EQ(Decode("200100"), Decision::kPrinted);
  EXPECT_EQ(Dialog(0).selected, 0);
  EXPECT_EQ(Dialog(0).text, "Nessuna riposta dal Dispositivo !");
}

TEST_F(RecoveryInDoubt, OutOfSequenceIsAQuestionAndVoidsNothing) {
  Answer(kReprint);
  EXPECT_EQ(Decode("ERR11"), Decision::kReprint);
  EXPECT_EQ(Dialog(0).text, "11-Sequenza Errata");
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(RecoveryInDoubt, TheDecisionIsTold) {
  std::vector<Decision> told;
  recovery.OnDecided = [&](Decision decision) { told.push_back(decision); };
  Answer(kPrinted, "close", kReprint, kAbort);
  (void)Decode("ERR08");
  (void)Decode("ERR-2");
  EXPECT_EQ(recovery.AskInDoubt("Scontrino delle 09:00", "Stampato ?"), Decision::kAbort);
  EXPECT_EQ(told, (std::vector{Decision::kPrinted, Decision::kReprint, Decision::kAbort}));
  EXPECT_EQ(Dialog(3).heading, "Scontrino delle 09:00");
  EXPECT_EQ(Dialog(3).text, "Stampato ?");
  EXPECT_EQ(Errors().at(4), "Scontrino delle 09:00 Stampato ?");
}

TEST_F(LogoInDoubt, ARowIsStoredOnlyWithItsOwnReply) {
  std::string bitmap = LogoBitmap(2);
  bitmap += std::string(112, '\1');
  files.content["C:\\logo.bmp"] = bitmap;
  LogoDownload download{link, settings, recovery, files, logs, messages};
  const auto stored = [&] { return download.Download("05", "C:\\logo.bmp", "33;5;C:\\logo.bmp;", [] {}); };
  Replies({"4052", "200100", "4052", "4052"});
  Answer(kReprint);
  EXPECT_TRUE(stored());
  EXPECT_EQ(Sent().size(), 4U);
  Replies({"ERR-2", "ERR11", "4052", ""});
  Answer(kPrinted, kReprint, kAbort, "Ok");
  EXPECT_FALSE(stored());
  EXPECT_EQ(Sent().size(), 8U);
  EXPECT_EQ(Last(Sent()).substr(0, 9), "405205002");
}

TEST_F(QueriesInDoubt, AForeignReceiptAtTheStartIsAskedAbout) {
  Replies({"ERR17", "ERR17", "1028", "3217"});
  Answer("Sì", "No", "Ok");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Sent(), (Lines{"321700", "321700", "102800", "321700"}));
  EXPECT_FALSE(cash.ReceiptIsOurs);
}

TEST_F(QueriesInDoubt, OurOwnReceiptAtTheStartIsVoidedAfterTheUsualMessage) {
  cash.ReceiptIsOurs = true;
  Replies({"ERR17", "1028", "3217", "1999"});
  Answer("Ok");
  (void)queries.StatusQuery(Asking::kAttended);
  EXPECT_FALSE(cash.ReceiptIsOurs);
  cash.ReceiptIsOurs = true;
  (void)queries.IdentityQuery(Asking::kAttended);
  EXPECT_TRUE(cash.ReceiptIsOurs);  // Only the status says what is open.
}

TEST_F(LinkInDoubt, AWaitThatBeginsBeforeMidnightEndsLikeEveryOther) {
  clock.Advance(14h + 59min + 50s);
  ASSERT_EQ(clock.SecondsSinceMidnight(), 86390);
  const double start = Elapsed();
  EXPECT_TRUE(link.Exchange("1036").Is(Reply::Kind::kSilence));
  EXPECT_EQ(Elapsed() - start, 15000);
}

}  // namespace
}  // namespace orvenza::test
