#include <gtest/gtest.h>

#include "device/register_queries.h"
#include "support/device_bench.h"

namespace orvenza::test {
namespace {

/// The quiet form of the queries. Whatever happens, nobody is asked: a dialog finds no answer and fails the
/// test.
class QuietQueryTest : public DeviceBench {
 protected:
  void Replies(const Lines& replies) {
    for (const auto& reply : replies) control.Reply(reply);
  }
};

TEST_F(QuietQueryTest, EachQuerySendsItsCodeAndReturnsItsReply) {
  Replies({"3217ab", "1999cd", "4201ef"});
  EXPECT_EQ(queries.StatusQuery("*"), "3217ab");
  EXPECT_EQ(queries.IdentityQuery("*"), "1999cd");
  EXPECT_EQ(queries.ClockQuery("*"), "4201ef");
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
    EXPECT_EQ(queries.StatusQuery("*"), "") << row.reply;
    EXPECT_EQ(Errors(), Lines{row.line});
    EXPECT_EQ(Sent(), Lines{"321700"}) << row.reply;
    EXPECT_EQ(control.calls, Lines{});
  }
}

TEST_F(QuietQueryTest, SilenceIsOneLineInTheErrorLog) {
  EXPECT_EQ(queries.ClockQuery("*"), "");
  EXPECT_EQ(Errors(), Lines{"Nessuna risposta dal Dispositivo !"});
  EXPECT_EQ(Elapsed(), 15000);
}

TEST_F(QuietQueryTest, AnAbsentRegisterIsLookedForOnce) {
  control.presence = {false, true};
  link.ReplyText = "42011611260930";
  EXPECT_EQ(queries.StatusQuery("*"), "");
  EXPECT_EQ(Errors(), Lines{"Dispositivo Spento o Non Collegato !"});
  EXPECT_EQ(Sent(), Lines{});
  EXPECT_EQ(link.ReplyText, "");
}

TEST_F(QuietQueryTest, AControlThatFailsIsNoReply) {
  faulty.FailNext("Send", error_number::kDeviceError);
  EXPECT_EQ(queries.StatusQuery("*"), "");
  EXPECT_EQ(Errors(), (Lines{"EcrLinkX1 - 57 - Device I/O error", "Nessuna risposta dal Dispositivo !"}));
}

TEST_F(QuietQueryTest, TheStatusIsAskedInItsOtherFormAfterError16) {
  Replies({"ERR16", "3217"});
  EXPECT_EQ(queries.StatusQuery("*"), "3217");
  EXPECT_EQ(Sent(), (Lines{"321700", "321701"}));
}

TEST_F(QuietQueryTest, OnlyTheStatusHasAnotherForm) {
  Replies({"ERR16", "4201"});
  EXPECT_EQ(queries.ClockQuery("*"), "");
  EXPECT_EQ(Sent(), Lines{"420100"});
}

TEST_F(QuietQueryTest, TheClocksReplyFollowsTheStatus) {
  settings.PcTimeCorrection = 30;
  Replies({"3217", "42011611260930"});
  EXPECT_EQ(queries.StatusQuery("*"), "3217");
  EXPECT_EQ(Sent(), (Lines{"321700", "420100"}));
  EXPECT_EQ(link.ReplyText, "42011611260930");
}

TEST_F(QuietQueryTest, TheClockIsNotAskedWithoutCorrections) {
  control.Reply("3217");
  queries.StatusQuery("*");
  EXPECT_EQ(Sent(), Lines{"321700"});
  EXPECT_EQ(link.ReplyText, "3217");
}

TEST_F(QuietQueryTest, TheClockIsNotAskedAfterAFailure) {
  settings.PcTimeCorrection = 30;
  control.Reply("ERR08");
  EXPECT_EQ(queries.StatusQuery("*"), "");
  EXPECT_EQ(Sent(), Lines{"321700"});
}

}  // namespace
}  // namespace orvenza::test
