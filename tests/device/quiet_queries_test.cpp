#include <gtest/gtest.h>

#include "device/register_queries.h"
#include "support/device_bench.h"

namespace orvenza::test {
namespace {

/// The quiet form of the queries never asks the operator: a dialog would find no answer and fail the test.
class QuietQueryTest : public DeviceBench {
 protected:
  void Replies(const Lines& replies) {
    for (const auto& reply : replies) control.Reply(reply);
  }
};

TEST_F(QuietQueryTest, EachQuerySendsItsCodeAndReturnsItsReply) {
  Replies({"3217ab", "1999cd", "4201ef"});
  EXPECT_EQ(queries.StatusQuery(Asking::kQuiet), "3217ab");
  EXPECT_EQ(queries.IdentityQuery(Asking::kQuiet), "1999cd");
  EXPECT_EQ(queries.ClockQuery(Asking::kQuiet), "4201ef");
  EXPECT_EQ(Sent(), (Lines{"321700", "199900", "420100"}));
  EXPECT_EQ(Errors(), Lines{});
}

TEST_F(QuietQueryTest, AFailureIsOneLineInTheErrorLogAndTheEnd) {
  struct {
    const char* reply;
    const char* line;
  } const rows[] = {
      {"ERR-1", "Errore Comunicazione : ERR-1"},
      {"ERR08", "ECR Error : ERR08"},
      {"ERR01", "ECR Error : ERR01"},
      {"ERR11", "ECR Error : ERR11"},
      {"ERR17", "ECR Error : ERR17"},
      {"200100", "Errore di risposta dal Dispositivo !"},
  };
  for (const auto& row : rows) {
    files.content.clear();
    control.sent.clear();
    control.Reply(row.reply);
    EXPECT_EQ(queries.StatusQuery(Asking::kQuiet), std::nullopt) << row.reply;
    EXPECT_EQ(Errors(), Lines{row.line});
    EXPECT_EQ(Sent(), Lines{"321700"}) << row.reply;
    EXPECT_EQ(control.calls, Lines{});
  }
}

TEST_F(QuietQueryTest, SilenceIsOneLineInTheErrorLog) {
  EXPECT_EQ(queries.ClockQuery(Asking::kQuiet), std::nullopt);
  EXPECT_EQ(Errors(), Lines{"Nessuna risposta dal Dispositivo !"});
  EXPECT_EQ(Elapsed(), 15000);
}

TEST_F(QuietQueryTest, AnAbsentRegisterIsLookedForOnce) {
  control.presence = {false, true};
  control.Raise("3217");
  EXPECT_EQ(queries.StatusQuery(Asking::kQuiet), std::nullopt);
  EXPECT_EQ(Errors(), Lines{"Dispositivo Spento o Non Collegato !"});
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(QuietQueryTest, AControlThatFailsIsNoReply) {
  faulty.FailNext("Send", error_number::kDeviceError);
  EXPECT_EQ(queries.StatusQuery(Asking::kQuiet), std::nullopt);
  EXPECT_EQ(Errors(), (Lines{"EcrLinkX1 - 57 - Device I/O error", "Nessuna risposta dal Dispositivo !"}));
}

TEST_F(QuietQueryTest, TheStatusIsAskedInItsOtherFormAfterError16) {
  Replies({"ERR16", "3217"});
  EXPECT_EQ(queries.StatusQuery(Asking::kQuiet), "3217");
  EXPECT_EQ(Sent(), (Lines{"321700", "321701"}));
}

TEST_F(QuietQueryTest, OnlyTheStatusHasAnotherForm) {
  Replies({"ERR16", "4201"});
  EXPECT_EQ(queries.ClockQuery(Asking::kQuiet), std::nullopt);
  EXPECT_EQ(Sent(), Lines{"420100"});
}

TEST_F(QuietQueryTest, TheStatusIsNotFollowedByTheClock) {
  settings.PcTimeCorrection = 30;
  control.Reply("3217");
  EXPECT_EQ(queries.StatusQuery(Asking::kQuiet), "3217");
  EXPECT_EQ(Sent(), Lines{"321700"});
}

}  // namespace
}  // namespace orvenza::test
