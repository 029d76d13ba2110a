#include "device/cash_dialogues.h"

#include <gtest/gtest.h>

#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

/// One dialogue with prepared replies, which come without delay. A test states what was sent, the error log
/// and the elapsed time.
class CashDialoguesTest : public DeviceBench {
 protected:
  void Replies(const Lines& replies) {
    for (const auto& reply : replies) control.Reply(reply);
  }

  static std::string CloseQuestion(const std::string& answer) {
    return "message \"Orvenza - Attenzione !\" \"Impossibile annullare lo scontrino in corso !\\r\\nSi "
           "desidera "
           "chiudere automaticamente lo scontrino ?\" [Sì|No] <- " +
           answer;
  }
};

using RestartTest = CashDialoguesTest;
using VoidTest = CashDialoguesTest;

TEST_F(RestartTest, AnAcceptedRestartIsFollowedByTheStatus) {
  Replies({"1149", "3217"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "321701"}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 3000);
}

TEST_F(RestartTest, SilenceCountsAsAccepted) {
  control.NoReply();
  control.Reply("3217");
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "321701"}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 15000 + 3000);
}

TEST_F(RestartTest, ARetryCarriesTheErrorCodeOfTheReply) {
  Replies({"ERR05", "ERR0811", "1149", "3217"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "114905", "114908", "321701"}));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 200 + 200 + 3000);
}

TEST_F(RestartTest, FourErrorRepliesAreTheEnd) {
  Replies({"ERR05", "ERR06", "ERR07", "ERR08"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "114905", "114906", "114907"}));
  EXPECT_EQ(Errors(), Lines{"Impossibile Inviare Riavvio da Fine Carta !"});
  EXPECT_EQ(Elapsed(), 3 * 200);
}

TEST_F(RestartTest, ALinkErrorIsLoggedAndTheSameCommandSentAgain) {
  Replies({"ERR05", "ERR-2", "1149", "3217"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "114905", "114905", "321701"}));
  EXPECT_EQ(Errors(), Lines{"ECR Error : ERR-2"});
}

TEST_F(RestartTest, FourLinkErrorsAreTheEnd) {
  Replies({"ERR-1", "ERR-2", "ERR-3", "ERR-1"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), Lines(4, "114900"));
  EXPECT_EQ(Errors(), (Lines{"ECR Error : ERR-1", "ECR Error : ERR-2", "ECR Error : ERR-3",
                             "ECR Error : ERR-1", "Impossibile Inviare Riavvio da Fine Carta !"}));
  EXPECT_EQ(Elapsed(), 3 * 200);
}

TEST_F(RestartTest, TheStatusIsAskedUntilTheRegisterAnswersIt) {
  control.Reply("1149");
  Replies(Lines(10, "ERR08"));
  control.Reply("3217");
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent().size(), 12U);
  EXPECT_EQ(Elapsed(), 3000 + 9 * 500 + 3000);
}

TEST_F(RestartTest, AnOpenReceiptEndsTheWaitForTheStatus) {
  Replies({"1149", "ERR17"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent(), (Lines{"114900", "321701"}));
}

TEST_F(RestartTest, ARegisterThatFallsSilentIsNotAskedForEver) {
  control.Reply("1149");
  cash.InvioRIAVVIO();
  EXPECT_EQ(Sent().size(), 11U);
  EXPECT_EQ(Last(Errors()), "Impossibile leggere stato Cash !");
}

TEST_F(RestartTest, TheProgramCanEndWhileTheStatusStaysAnError) {
  control.Reply("1149");
  control.Always("3217", "ERR08");
  EndAfter(10s);
  EXPECT_THROW(cash.InvioRIAVVIO(), ProgramEnd);
  EXPECT_EQ(Elapsed(), 2 * (3000 + 9 * 500));
}

TEST_F(RestartTest, NothingIsSentToAnAbsentRegister) {
  control.presence = {false, true};
  Answer("Ok");
  Replies({"1149", "3217"});
  cash.InvioRIAVVIO();
  EXPECT_EQ(Shown(), Lines{AbsentAlarm()});
  EXPECT_EQ(Sent(), (Lines{"114900", "321701"}));
}

TEST_F(VoidTest, AnAcceptedVoidIsFollowedByAPause) {
  control.Reply("1028");
  cash.InvioVOID();
  EXPECT_EQ(Sent(), Lines{"102800"});
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 1000);
}

TEST_F(VoidTest, SilenceCountsAsVoided) {
  cash.InvioVOID();
  EXPECT_EQ(Sent(), Lines{"102800"});
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 15000 + 1000);
}

TEST_F(VoidTest, ARetryCarriesTheErrorCodeOfTheReply) {
  Replies({"ERR08", "ERR1112", "1028"});
  cash.InvioVOID();
  EXPECT_EQ(Sent(), (Lines{"102800", "102808", "102811"}));
  EXPECT_EQ(Elapsed(), 200 + 200 + 1000);
}

TEST_F(VoidTest, FourErrorRepliesAreTheEnd) {
  Replies({"ERR05", "ERR06", "ERR07", "ERR08"});
  cash.InvioVOID();
  EXPECT_EQ(Sent(), (Lines{"102800", "102805", "102806", "102807"}));
  EXPECT_EQ(Errors(), Lines{"Impossibile inviare ALL VOID !"});
  EXPECT_EQ(Elapsed(), 3 * 200);
}

TEST_F(VoidTest, ALinkErrorIsLoggedAndTheSameCommandSentAgain) {
  Replies({"ERR08", "ERR-3", "1028"});
  cash.InvioVOID();
  EXPECT_EQ(Sent(), (Lines{"102800", "102808", "102808"}));
  EXPECT_EQ(Errors(), Lines{"ECR Error : ERR-3"});
}

TEST_F(VoidTest, FourLinkErrorsAreTheEnd) {
  Replies(Lines(4, "ERR-1"));
  cash.InvioVOID();
  EXPECT_EQ(Sent(), Lines(4, "102800"));
  EXPECT_EQ(Errors(), (Lines{"ECR Error : ERR-1", "ECR Error : ERR-1", "ECR Error : ERR-1",
                             "ECR Error : ERR-1", "Impossibile inviare ALL VOID !"}));
}

TEST_F(VoidTest, ASequenceErrorWithoutAnOpenReceiptNeedsNoVoid) {
  Replies({"ERR11", "3217"});
  cash.InvioVOID();
  EXPECT_EQ(Sent(), (Lines{"102800", "321701"}));
  EXPECT_EQ(Shown(), Lines{});
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(VoidTest, AReceiptThatCannotBeVoidedIsClosedWhenTheOperatorWantsIt) {
  Replies({"ERR11", "ERR17", "1036"});
  Answer("Sì");
  cash.InvioVOID();
  EXPECT_EQ(Sent(), (Lines{"102800", "321701", "103611000000000"}));
  EXPECT_EQ(Shown(), Lines{CloseQuestion("Sì")});
  EXPECT_EQ(Dialog(0).icon, MessageIcon::kExclamation);
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 200 + 1000);
}

TEST_F(VoidTest, TheAutomaticCloseCarriesTheFirstCodeOfTheReply) {
  Replies({"ERR0811", "ERR17", "1036"});
  Answer("Sì");
  cash.InvioVOID();
  EXPECT_EQ(Last(Sent()), "103608000000000");
}

TEST_F(VoidTest, AnyOtherAnswerLeavesTheReceiptOpen) {
  for (const char* answer : {"No", "close"}) {
    control.sent.clear();
    Replies({"ERR11", "ERR17"});
    Answer(answer);
    cash.InvioVOID();
    EXPECT_EQ(Sent(), (Lines{"102800", "321701"})) << answer;
    EXPECT_EQ(Last(Shown()), CloseQuestion(answer));
  }
  EXPECT_EQ(Elapsed(), 2 * 1000);
}

TEST_F(VoidTest, TheAutomaticCloseWaitsForTheRegister) {
  control.presence = {true, true, false, true};
  Replies({"ERR11", "ERR17", "1036"});
  Answer("Sì", "Ok");
  faulty.Before("SetMessage", [&](const std::string& message) {
    EXPECT_TRUE(!message.starts_with("1036") || control.presenceReads == 5);
  });
  cash.InvioVOID();
  EXPECT_EQ(Shown(), (Lines{CloseQuestion("Sì"), AbsentAlarm()}));
  EXPECT_EQ(Last(Sent()), "103611000000000");
}

TEST_F(VoidTest, NothingIsSentToAnAbsentRegister) {
  control.presence = {false, true};
  Answer("Ok");
  Replies({"1028"});
  cash.InvioVOID();
  EXPECT_EQ(Shown(), Lines{AbsentAlarm()});
  EXPECT_EQ(Sent(), Lines{"102800"});
}

TEST_F(VoidTest, NothingIsSentAgainToARegisterThatHasGone) {
  control.presence = {true, false, true};
  Answer("Ok");
  Replies({"ERR08", "1028"});
  cash.InvioVOID();
  EXPECT_EQ(Shown(), Lines{AbsentAlarm()});
  EXPECT_EQ(Sent(), (Lines{"102800", "102808"}));
}

TEST_F(VoidTest, AnAutomaticCloseThatFailsIsFollowedByAVoid) {
  Replies({"ERR11", "ERR17", "ERR08", "1028"});
  Answer("Sì");
  cash.InvioVOID();
  EXPECT_EQ(Sent(), (Lines{"102800", "321701", "103611000000000", "102808"}));
  EXPECT_EQ(Elapsed(), 200 + 200 + 1000);
}

TEST_F(VoidTest, ALinkErrorOfTheAutomaticCloseIsFollowedByAVoid) {
  Replies({"ERR11", "ERR17", "ERR-1", "1028"});
  Answer("Sì");
  cash.InvioVOID();
  EXPECT_EQ(Last(Sent()), "102811");
  EXPECT_EQ(Errors(), Lines{"ECR Error : ERR-1"});
}

TEST_F(VoidTest, AnAutomaticCloseIsOneOfTheFourTries) {
  Replies({"ERR11", "ERR17", "ERR08", "ERR08", "ERR08"});
  Answer("Sì");
  cash.InvioVOID();
  EXPECT_EQ(Sent(), (Lines{"102800", "321701", "103611000000000", "102808", "102808"}));
  EXPECT_EQ(Errors(), Lines{"Impossibile inviare ALL VOID !"});
}

TEST_F(VoidTest, TheOperatorMayGoOnClosing) {
  for (int i = 0; i < 6; ++i) {
    Replies({"ERR11", "ERR17"});
    Answer("Sì");
  }
  Replies({"1036"});
  cash.InvioVOID();
  EXPECT_EQ(Sent().size(), 13U);
  EXPECT_EQ(Last(Sent()), "103611000000000");
  EXPECT_EQ(Errors(), Lines{});
}

TEST_F(VoidTest, ReturnsTheLastReply) {
  struct {
    Lines replies;
    const char* last;
  } const rows[] = {
      {{"1028"}, "1028"},
      {{"ERR-1", "200100"}, "200100"},
      {{"ERR05", "ERR06", "ERR07", "ERR08"}, "ERR08"},
      {{"ERR11", "3217"}, ""},
  };
  for (const auto& row : rows) {
    Replies(row.replies);
    EXPECT_EQ(cash.InvioVOID().Text(), row.last);
  }
  EXPECT_EQ(cash.InvioVOID().Text(), "") << "silence";
}

TEST_F(VoidTest, AReceiptLeftOpenIsNoReply) {
  Replies({"ERR11", "ERR17"});
  Answer("No");
  EXPECT_EQ(cash.InvioVOID().Text(), "");
}

TEST_F(VoidTest, AReplyThatComesInThePauseAfterwardsCounts) {
  control.Reply("1028", 15500ms);
  EXPECT_EQ(cash.InvioVOID().Text(), "1028");
  EXPECT_EQ(Elapsed(), 15000 + 1000);
}

TEST_F(VoidTest, AStatusThatCannotBeReadLeavesItsLastReply) {
  control.Reply("ERR11");
  Replies(Lines(9, "ERR08"));
  control.Reply("200100");
  EXPECT_EQ(cash.InvioVOID().Text(), "200100");
}

}  // namespace
}  // namespace orvenza::test
