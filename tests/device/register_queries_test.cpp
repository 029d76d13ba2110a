#include "device/register_queries.h"

#include <gtest/gtest.h>

#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* kSilent = "Nessuna risposta dal Dispositivo !";
constexpr const char* kWrongReply = "Errore di risposta dal Dispositivo !";
constexpr const char* kGaveUp = "Collegamento Annullato dall'Operatore";

/// Queries that may involve the operator.
class AttendedQueryTest : public DeviceBench {
 protected:
  void Replies(const Lines& replies) {
    for (const auto& reply : replies) control.Reply(reply);
  }

  static std::string ErrorForm(const std::string& text) {
    return "choice \"Orvenza\" \"Attenzione ! Errore ECR :\" \"" + text + "\" [&Ok] <- &Ok";
  }
};

TEST_F(AttendedQueryTest, EachQuerySendsItsCodeAndReturnsItsReply) {
  Replies({"3217ab", "1999cd", "4201ef"});
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217ab");
  EXPECT_EQ(queries.IdentityQuery(Asking::kAttended), "1999cd");
  EXPECT_EQ(queries.ClockQuery(Asking::kAttended), "4201ef");
  EXPECT_EQ(Sent(), (Lines{"321700", "199900", "420100"}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(AttendedQueryTest, TheStatusIsAskedInItsOtherFormAfterError16) {
  Replies({"ERR16", "3217"});
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Sent(), (Lines{"321700", "321701"}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(AttendedQueryTest, ASecondError16IsAnErrorLikeOthers) {
  Replies({"ERR16", "ERR16", "3217"});
  Answer("&Ok");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Shown(), Lines{ErrorForm("16-Non Previsto")});
  EXPECT_EQ(Sent(), (Lines{"321700", "321701", "321701"}));
}

TEST_F(AttendedQueryTest, OnlyTheStatusHasAnotherForm) {
  Replies({"ERR16", "4201"});
  Answer("&Ok");
  EXPECT_EQ(queries.ClockQuery(Asking::kAttended), "4201");
  EXPECT_EQ(Sent(), Lines(2, "420100"));
  EXPECT_EQ(Errors(), Lines{"ECR Error : 16-Non Previsto"});
}

TEST_F(AttendedQueryTest, AnOpenReceiptIsVoidedFirst) {
  Replies({"ERR17", "1028", "1999"});
  Answer("Ok");
  EXPECT_EQ(queries.IdentityQuery(Asking::kAttended), "1999");
  EXPECT_EQ(Shown(), Lines{"message \"Orvenza - Attenzione !\" \"Invio Annullo in corso... Attendere\\r\\n"
                           "Controllare chiave Cash !\" [Ok] <- Ok"});
  EXPECT_EQ(Dialog(0).icon, MessageIcon::kExclamation);
  EXPECT_EQ(Sent(), (Lines{"199900", "102800", "199900"}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(control.calls.size(), 13U);
  EXPECT_EQ(Elapsed(), 1000 + 1000 + 100);
}

TEST_F(AttendedQueryTest, ALinkErrorIsShownAndTheLinkOpenedAgain) {
  Replies({"ERR-2", "3217"});
  Answer("Riprova");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Errors(), Lines{"Errore Comunicazione : ERR-2"});
  EXPECT_EQ(Shown(), Lines{RetryQuestion("Errore Comunicazione : ERR-2", "Riprova")});
  EXPECT_EQ(Dialog(0).icon, MessageIcon::kInformation);
  EXPECT_EQ(control.calls.at(0), "open 0");
  EXPECT_EQ(control.calls.at(9), "end-of-text wait 10002");
  EXPECT_EQ(Sent(), Lines(2, "321700"));
  EXPECT_EQ(Elapsed(), 100);
}

TEST_F(AttendedQueryTest, SilenceIsShown) {
  control.NoReply();
  control.Reply("3217");
  Answer("Riprova");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Errors(), Lines{kSilent});
  EXPECT_EQ(Shown(), Lines{RetryQuestion(kSilent, "Riprova")});
  EXPECT_EQ(Elapsed(), 15000 + 100);
}

TEST_F(AttendedQueryTest, AReplyToSomethingElseIsShown) {
  Replies({"200100", "3217"});
  Answer("Riprova");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Errors(), Lines{kWrongReply});
  EXPECT_EQ(Shown(), Lines{RetryQuestion(kWrongReply, "Riprova")});
}

TEST_F(AttendedQueryTest, ADeviceErrorIsDecodedWithoutChoices) {
  Replies({"ERR08", "3217"});
  Answer("&Ok");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Errors(), Lines{"ECR Error : 08-Tasto Errato"});
  EXPECT_EQ(Shown(), Lines{ErrorForm("08-Tasto Errato")});
  EXPECT_EQ(control.calls.at(0), "open 0");
  EXPECT_EQ(Elapsed(), 100);
}

TEST_F(AttendedQueryTest, PaperOutIsSettledBeforeTheNextTry) {
  Replies({"ERR02", "1149", "321701", "1999"});
  Answer("&Ok");
  EXPECT_EQ(queries.IdentityQuery(Asking::kAttended), "1999");
  EXPECT_EQ(Sent(), (Lines{"199900", "114900", "321701", "199900"}));
}

TEST_F(AttendedQueryTest, AnErrorSettledInSilenceIsFollowedByTheQuestion) {
  Replies({"ERR11", "1028", "1999"});
  Answer("Riprova");
  EXPECT_EQ(queries.IdentityQuery(Asking::kAttended), "1999");
  EXPECT_EQ(Sent(), (Lines{"199900", "102800", "199900"}));
  EXPECT_EQ(Errors(), (Lines{"11-Sequenza Errata", "Annullamento scontrino in corso", kWrongReply}));
}

TEST_F(AttendedQueryTest, TheOperatorMayConfigureThePortFirst) {
  Replies({"ERR-1", "3217"});
  Answer("Configura", "COM4 9600");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Dialog(1).kind, DialogKind::kPortSettings);
  EXPECT_EQ(control.calls.at(2), "port number 4");
  EXPECT_EQ(control.calls.at(3), "speed 9600");
}

TEST_F(AttendedQueryTest, GivingUpTakesTwoAnswers) {
  control.Reply("ERR-1");
  Answer("Annulla", "Sì");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), std::nullopt);
  EXPECT_EQ(Shown(), (Lines{RetryQuestion("Errore Comunicazione : ERR-1", "Annulla"), EndQuestion("Sì")}));
  EXPECT_EQ(Dialog(1).icon, MessageIcon::kStop);
  EXPECT_EQ(Errors(), (Lines{"Errore Comunicazione : ERR-1", kGaveUp}));
  EXPECT_EQ(control.calls, Lines{});
  EXPECT_EQ(Sent(), Lines{"321700"});
}

TEST_F(AttendedQueryTest, AnyOtherAnswerIsARetry) {
  const Lines answers[] = {{"close"}, {"Annulla", "No"}, {"Annulla", "close"}};
  for (const auto& row : answers) {
    Replies({"ERR-1", "3217"});
    for (const auto& answer : row) Answer(answer);
    EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  }
  EXPECT_EQ(person.AnswersLeft(), 0U);
  EXPECT_EQ(Errors(), Lines(3, "Errore Comunicazione : ERR-1"));
}

TEST_F(AttendedQueryTest, AnAbsentRegisterCanBeGivenUpAfterThreeAlarms) {
  control.presence = {false};
  Answer("Ok", "Ok", "Ok", "Annulla", "Sì");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), std::nullopt);
  EXPECT_EQ(Shown(), (Lines{AbsentAlarm(), AbsentAlarm(), AbsentAlarm(), RetryQuestion(kSilent, "Annulla"),
                            EndQuestion("Sì")}));
  EXPECT_EQ(Sent(), Lines{});
  EXPECT_EQ(Errors(), (Lines{"Dispositivo Spento o Non Collegato !", "Dispositivo Spento o Non Collegato !",
                             "Dispositivo Spento o Non Collegato !", kSilent, kGaveUp}));
}

TEST_F(AttendedQueryTest, NothingIsSentWhileAnAbsentRegisterIsTriedAgain) {
  control.presence = {false, false, false, false, false, true};
  control.Reply("3217");
  Answer("Ok", "Ok", "Ok", "Riprova", "Ok");
  int looks = 0;
  faulty.Before("Send", [&](const std::string&) { looks = control.presenceReads; });
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(looks, 8)
      << "three, one before the question, two, one without a question, and the one that found it";
  EXPECT_EQ(Sent(), Lines{"321700"});
  EXPECT_EQ(person.AnswersLeft(), 0U);
}

TEST_F(AttendedQueryTest, ARegisterSwitchedOnAfterAnAlarmIsAskedWithoutAQuestion) {
  control.presence = {false, true};
  control.Reply("3217");
  Answer("Ok");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Shown(), Lines{AbsentAlarm()});
}

TEST_F(AttendedQueryTest, PollingIsOffWhileTheLinkIsOpenedAgain) {
  bool enabled = false;
  faulty.Before("SetReset", [&](const std::string&) { enabled = timer.Enabled(); });
  for (const char* reply : {"ERR-1", "ERR08"}) {
    enabled = true;
    timer.SetEnabled(true);
    Replies({reply, "3217"});
    Answer(std::string(reply) == "ERR08" ? "&Ok" : "Riprova");
    EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
    EXPECT_FALSE(enabled) << reply;
    EXPECT_TRUE(timer.Enabled()) << reply;
  }
}

TEST_F(AttendedQueryTest, PollingThatWasOffStaysOff) {
  Replies({"ERR-1", "ERR08", "3217"});
  Answer("Riprova", "&Ok");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_FALSE(timer.Enabled());
}

TEST_F(AttendedQueryTest, TheProgramCanEndBetweenTwoTries) {
  control.Always("3217", "ERR-1");
  Answer("Riprova");
  EndAfter(50ms);
  EXPECT_THROW((void)queries.StatusQuery(Asking::kAttended), ProgramEnd);
  EXPECT_EQ(Sent().size(), 1U);
}

TEST_F(AttendedQueryTest, ChangedSettingsAreAppliedBeforeATry) {
  link.ReapplySettings();
  control.Reply("3217");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(control.calls.size(), 13U);
  EXPECT_EQ(control.calls.at(0), "open 0");
}

TEST_F(AttendedQueryTest, TheClockIsNotAskedAfterTheStatus) {
  settings.PcTimeCorrection = 30;
  control.Reply("3217");
  EXPECT_EQ(queries.StatusQuery(Asking::kAttended), "3217");
  EXPECT_EQ(Sent(), Lines{"321700"});
}

}  // namespace
}  // namespace orvenza::test
