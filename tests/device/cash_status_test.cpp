#include <gtest/gtest.h>

#include "device/cash_dialogues.h"
#include "support/device_bench.h"

namespace orvenza::test {
namespace {

class CashStatusTest : public DeviceBench {
 protected:
  void Replies(const Lines& replies) {
    for (const auto& reply : replies) control.Reply(reply);
  }
};

TEST_F(CashStatusTest, AnErrorThatEndsIn17IsAnOpenReceipt) {
  for (const char* reply : {"ERR17", "ERR0817", "ERR-17"}) {
    control.Reply(reply);
    const CashStatus status = cash.QueryCashStatus();
    EXPECT_TRUE(status.receiptOpen) << reply;
    EXPECT_EQ(status.unread.Text(), "") << reply;
  }
  EXPECT_EQ(Sent(), Lines(3, "321701"));
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(CashStatusTest, AnAnswerIsAClosedReceipt) {
  control.Reply("321701000017");
  const CashStatus status = cash.QueryCashStatus();
  EXPECT_FALSE(status.receiptOpen);
  EXPECT_EQ(status.unread.Text(), "");
  EXPECT_EQ(Sent(), Lines{"321701"});
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(CashStatusTest, EveryOtherReplyIsLoggedAndTheQuerySentAgain) {
  Replies({"ERR08", "ERR-1", "20010017", "ERR", "\xE8", "3217"});
  EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Sent(), Lines(6, "321701"));
  EXPECT_EQ(Errors(), (Lines{"ECR Error : ERR08", "ECR Error : ERR-1", "ECR Error : 20010017",
                             "ECR Error : ERR", "ECR Error : è"}));
  EXPECT_EQ(Elapsed(), 5 * 500);
}

TEST_F(CashStatusTest, TenCommandsWithoutReplyAreAllThatAreSent) {
  EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Sent(), Lines(10, "321701"));
  Lines errors(10, "ECR Error : ");
  errors.push_back("Impossibile leggere stato Cash !");
  EXPECT_EQ(Errors(), errors);
  EXPECT_EQ(Elapsed(), 10 * 15000 + 9 * 500);
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(CashStatusTest, TheLastErrorStaysAfterTheTenthTry) {
  Replies(Lines(9, "ERR08"));
  control.Reply("ERR12");
  const CashStatus status = cash.QueryCashStatus();
  EXPECT_FALSE(status.receiptOpen);
  EXPECT_EQ(Sent().size(), 10U);
  EXPECT_EQ(status.unread.Text(), "ERR12");
  EXPECT_EQ(Last(Errors()), "Impossibile leggere stato Cash !");
}

TEST_F(CashStatusTest, TheTenthTryMayStillSucceed) {
  Replies(Lines(9, "ERR08"));
  control.Reply("ERR17");
  EXPECT_TRUE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Errors(), Lines(9, "ECR Error : ERR08"));
}

TEST_F(CashStatusTest, NothingIsSentToAnAbsentRegister) {
  control.presence = {false, false, false, true};
  Answer("Ok", "Ok", "Ok");
  control.Reply("3217");
  EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Shown(), Lines(3, AbsentAlarm()));
  EXPECT_EQ(Sent(), Lines{"321701"});
}

TEST_F(CashStatusTest, TheClockIsCorrectedAfterAnAnswer) {
  settings.PcTimeCorrection = 30;
  Replies({"3217", "42011611260930"});
  EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Sent(), (Lines{"321701", "420100"}));
  EXPECT_EQ(clock.TimesSet(), (std::vector<LocalTime>{{2026, 11, 16, 9, 30, 0}}));
}

TEST_F(CashStatusTest, TheClockIsNotAskedWhileAReceiptIsOpen) {
  settings.PcTimeCorrection = 30;
  control.Reply("ERR17");
  EXPECT_TRUE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Sent(), Lines{"321701"});
}

TEST_F(CashStatusTest, TheClockIsNotAskedWithoutCorrections) {
  for (const double seconds : {0.0, -30.0}) {
    settings.PcTimeCorrection = seconds;
    control.Reply("3217");
    EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  }
  EXPECT_EQ(Sent(), Lines(2, "321701"));
}

TEST_F(CashStatusTest, AClockThatDoesNotAnswerIsOneLineInTheErrorLog) {
  settings.PcTimeCorrection = 30;
  Replies({"3217", "ERR08"});
  EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Errors(), Lines{"ECR Error : ERR08"});
  EXPECT_EQ(clock.TimesSet().size(), 0U);
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(CashStatusTest, ARegisterThatWentAwayIsNotAlarmedAboutForTheClock) {
  settings.PcTimeCorrection = 30;
  control.presence = {true, false};
  control.Reply("3217");
  EXPECT_FALSE(cash.QueryCashStatus().receiptOpen);
  EXPECT_EQ(Errors(), Lines{"Dispositivo Spento o Non Collegato !"});
  EXPECT_EQ(Shown(), Lines{});
}

}  // namespace
}  // namespace orvenza::test
