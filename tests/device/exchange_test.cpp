#include <gtest/gtest.h>

#include <functional>

#include "device/device_link.h"
#include "support/device_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

class ExchangeTest : public DeviceBench {
 protected:
  /// Lets time pass until this time of the first day.
  void WaitUntil(int hour, int minute, int second) {
    clock.Advance(std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second) -
                  9h);
    begun_ = Elapsed();
  }
  /// Milliseconds since then.
  double Waited() const { return Elapsed() - begun_; }

 private:
  double begun_ = 0;
};

TEST_F(ExchangeTest, ThePresentRegisterIsReadyAtTheFirstLook) {
  EXPECT_TRUE(link.DeviceReady());
  EXPECT_EQ(control.presenceReads, 1);
  EXPECT_EQ(Shown(), Lines{});
}

TEST_F(ExchangeTest, EveryFailedCheckIsAnAlarmAndTheRegisterIsNotReady) {
  struct {
    std::deque<bool> presence;
    int reads;
    std::size_t alarms;
  } const rows[] = {
      {{false, true}, 2, 1},
      {{false, false, true}, 3, 2},
      {{false, false, false, true}, 3, 3},
  };
  for (const auto& row : rows) {
    files.content.clear();
    control.presence = row.presence;
    control.presenceReads = 0;
    const std::size_t before = Shown().size();
    for (std::size_t i = 0; i < row.alarms; ++i) Answer("Ok");
    EXPECT_FALSE(link.DeviceReady());
    EXPECT_EQ(control.presenceReads, row.reads);
    EXPECT_EQ(Shown().size() - before, row.alarms);
    EXPECT_EQ(Errors(), Lines(row.alarms, "Dispositivo Spento o Non Collegato !"));
  }
}

TEST_F(ExchangeTest, TheAlarmIsCriticalAndClosingItIsEnough) {
  control.presence = {false, true};
  Answer("close");
  EXPECT_FALSE(link.DeviceReady());
  EXPECT_EQ(Shown(), Lines{AbsentAlarm("close")});
  EXPECT_EQ(Dialog(0).icon, MessageIcon::kStop);
}

TEST_F(ExchangeTest, NothingIsSentWhileTheRegisterIsAbsent) {
  control.presence = {false, false, false, false, true};
  control.Reply("200100");
  Answer("Ok", "Ok", "Ok", "Ok");
  faulty.Before("Send", [&](const std::string&) { EXPECT_EQ(control.presenceReads, 6); });
  const Reply reply = link.Exchange("200100");
  EXPECT_EQ(Sent(), Lines{"200100"});
  EXPECT_EQ(Shown(), Lines(4, AbsentAlarm()));
  EXPECT_EQ(reply.Text(), "200100");
}

TEST_F(ExchangeTest, TheProgramCanEndWhileTheRegisterIsAbsent) {
  control.presence = {false};
  Answer("Ok", "Ok");
  clock.After(0ms, [&] { loop.RequestEnd({}); });
  EXPECT_THROW(link.Exchange("200100"), ProgramEnd);
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(ExchangeTest, ARegisterThatComesBackAsTheProgramIsToEndIsSentNothing) {
  control.presence = {false, true};
  Answer("Ok");
  faulty.Before("DevicePresent", [&](const std::string&) {
    if (control.presenceReads == 1) loop.RequestEnd({});
  });
  EXPECT_THROW(link.Exchange("200100"), ProgramEnd);
  EXPECT_EQ(Sent(), Lines{});
}

TEST_F(ExchangeTest, ARegisterSwitchedOffBehindADialogOfTheMenuIsSentNothing) {
  clock.After(0ms, [&] { control.presence = {false, true}; });
  faulty.Before("Send", [&](const std::string&) { EXPECT_EQ(Shown(), Lines{AbsentAlarm()}); });
  Answer("Ok");
  control.Reply("200100");
  link.Exchange("200100");
  EXPECT_EQ(Sent(), Lines{"200100"});
}

TEST_F(ExchangeTest, TransmittingDoesNotLookForTheRegister) {
  control.Reply("200100");
  link.Transmit("200100");
  EXPECT_EQ(control.presenceReads, 0);
  EXPECT_EQ(Sent(), Lines{"200100"});
}

TEST_F(ExchangeTest, AReplyIsKeptAsItWasDelivered) {
  control.Reply("3217 \xE8 ");
  const Reply reply = link.Exchange("321700");
  EXPECT_EQ(reply.Text(), "3217 \xE8 ");
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(ExchangeTest, EachLinkErrorHasItsMarker) {
  for (const char* marker : {"ERR-1", "ERR-2", "ERR-3"}) {
    control.Reply(marker);
    const Reply reply = link.Exchange("200100");
    EXPECT_EQ(reply.Text(), marker);
  }
}

TEST_F(ExchangeTest, AReplyEndsTheWaitAtOnce) {
  control.Reply("200100", 137ms);
  link.Exchange("200100");
  EXPECT_EQ(Elapsed(), 137);
}

TEST_F(ExchangeTest, SilenceLasts15Seconds) {
  control.Raise("older");
  const Reply reply = link.Exchange("200100");
  EXPECT_EQ(Elapsed(), 15000);
  EXPECT_EQ(reply.Text(), "");
  EXPECT_EQ(Errors(), Lines{});
}

TEST_F(ExchangeTest, AReplyOfTheLastMomentCounts) {
  control.Reply("200100", 14999ms);
  const Reply reply = link.Exchange("200100");
  EXPECT_EQ(reply.Text(), "200100");
  EXPECT_EQ(Elapsed(), 14999);
}

TEST_F(ExchangeTest, TheWaitCanBeLonger) {
  link.Exchange("200100", 50);
  EXPECT_EQ(Elapsed(), 50000);
}

TEST_F(ExchangeTest, AReplyHeldUpByALongDeliveryIsNoSilence) {
  for (const auto lineTime : {0ms, 7ms, 30ms, 900ms}) {
    // Like the simulated line: the reply starts only after the command has arrived.
    clock.After(1ms, [&] { clock.Stall(20s); });
    clock.After(2ms, [&] { clock.After(lineTime, [&] { control.Raise("200100"); }); });
    const Reply reply = link.Transmit("200100");
    EXPECT_EQ(reply.Text(), "200100") << lineTime.count();
  }
  EXPECT_EQ(Elapsed(), 4 * 20001 + 0 + 7 + 30 + 900);
}

TEST_F(ExchangeTest, SilenceAfterALongDeliveryLastsOneSecond) {
  clock.After(1s, [&] { clock.Stall(20s); });
  const Reply reply = link.Transmit("200100");
  EXPECT_EQ(reply.Text(), "");
  EXPECT_EQ(Elapsed(), 22000);
}

TEST_F(ExchangeTest, DeliveriesThatStayLongDoNotKeepAWaitFromEnding) {
  std::function<void()> busy = [&] {
    clock.Stall(200ms);
    if (clock.Uptime() < 1min) clock.After(0ms, busy);
  };
  busy();
  link.Transmit("200100");
  EXPECT_LT(Elapsed(), 17000);
}

TEST_F(ExchangeTest, AnEndAskedForInALongDeliveryWaitsForTheReplyBehindIt) {
  clock.After(1ms, [&] {
    clock.Stall(20s);
    loop.RequestEnd({});
  });
  clock.After(2ms, [&] { clock.After(40ms, [&] { control.Raise("200100"); }); });
  const Reply reply = link.Transmit("200100");
  EXPECT_EQ(reply.Text(), "200100");
}

TEST_F(ExchangeTest, AWaitThatEndsBeforeMidnightIsOrdinary) {
  WaitUntil(23, 59, 44);
  link.Exchange("200100");
  EXPECT_EQ(Waited(), 15000);
}

TEST_F(ExchangeTest, OnlyAReplyEndsAWaitBegunJustBeforeMidnight) {
  WaitUntil(23, 59, 45);
  control.Reply("200100", 1h);
  const Reply reply = link.Exchange("200100");
  EXPECT_EQ(reply.Text(), "200100");
  EXPECT_EQ(Waited(), 3600000);
}

TEST_F(ExchangeTest, TheProgramCanEndInAWaitAcrossMidnightAfter15Seconds) {
  WaitUntil(23, 59, 50);
  EndAfter(2s);
  EXPECT_THROW(link.Exchange("200100"), ProgramEnd);
  EXPECT_EQ(Waited(), 15000);
}

TEST_F(ExchangeTest, ALongWaitAcrossMidnightIsMeasuredAnyway) {
  WaitUntil(23, 59, 50);
  link.Exchange("200100", 50);
  EXPECT_EQ(Waited(), 50000);
}

TEST_F(ExchangeTest, AClockThatIsSetDoesNotMoveTheEndOfAWait) {
  clock.After(5s, [&] { clock.SetTimeOfDay(8, 0, 0); });
  link.Exchange("200100");
  EXPECT_EQ(Elapsed(), 15000);
}

TEST_F(ExchangeTest, AnEndAskedForWaitsAtMostOneMinute) {
  EndAfter(1s);
  EXPECT_THROW(link.Exchange("200100", 90), ProgramEnd);
  EXPECT_EQ(Elapsed(), 60000);
}

TEST_F(ExchangeTest, AnEndAskedForDoesNotCutTheWaitShort) {
  control.Reply("200100", 9s);
  EndAfter(1s);
  const Reply reply = link.Exchange("200100");
  EXPECT_EQ(reply.Text(), "200100");
  EXPECT_EQ(Elapsed(), 9000);
}

TEST_F(ExchangeTest, SilenceIsAnAnswerToTheCommandAlsoWhenTheProgramIsToEnd) {
  EndAfter(1s);
  EXPECT_NO_THROW(link.Exchange("200100"));
  EXPECT_EQ(Elapsed(), 15000);
}

TEST_F(ExchangeTest, ALateReplyIsNotTakenForTheNextOne) {
  clock.After(0ms, [&] { control.Raise("late"); });
  control.Reply("200100", 50ms);
  const Reply reply = link.Exchange("200100");
  EXPECT_EQ(reply.Text(), "200100");
  EXPECT_EQ(Elapsed(), 50);
}

TEST_F(ExchangeTest, ALateReplyIsSkippedInTheNextWait) {
  control.Reply("200100", 16s);
  link.Transmit("200100");
  control.Reply("321701", 5s);
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "321701");
  EXPECT_EQ(Elapsed(), 20000);
}

TEST_F(ExchangeTest, ALateReplyLeavesSilenceSilent) {
  control.Reply("200100", 16s);
  link.Transmit("200100");
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "");
  EXPECT_EQ(Elapsed(), 30000);
}

TEST_F(ExchangeTest, OnlyOutstandingRepliesAreSkipped) {
  link.Transmit("200100");
  clock.After(1s, [&] { control.Raise("200100"); });
  control.Reply("110900", 5s);
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "110900");
  EXPECT_EQ(Elapsed(), 20000);
}

TEST_F(ExchangeTest, AnErrorAfterSilenceIsTakenForTheReply) {
  link.Transmit("200100");
  control.Reply("ERR08");
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "ERR08");
}

TEST_F(ExchangeTest, AReplyToSomethingElseIsKeptWhereNoneIsOutstanding) {
  control.Reply("200100");
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "200100");
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(ExchangeTest, AnEventThatNoCommandAskedForLeavesNoneOutstanding) {
  control.Raise("200100");
  control.Reply("110900");
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "110900");
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(ExchangeTest, AReplyThatCameBetweenTwoCommandsIsNoLongerOutstanding) {
  control.Reply("200100", 15200ms);
  link.Transmit("200100");
  loop.Pause(500ms);
  control.Reply("200100");
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "200100");
}

TEST_F(ExchangeTest, AReplyThatCameJustBeforeTheNextCommandIsNoLongerOutstanding) {
  link.Transmit("200100");
  clock.After(0ms, [&] { control.Raise("200100"); });
  control.Reply("200100");
  const Reply reply = link.Exchange("321701");
  EXPECT_EQ(reply.Text(), "200100");
}

TEST_F(ExchangeTest, ALateReplyIsSkippedEvenWhenThePortWasReopened) {
  control.Reply("200100", 17s);
  link.Transmit("200100");
  link.Bounce();
  control.Reply("321701", 5s);
  const Reply reply = link.Transmit("321701");
  EXPECT_EQ(reply.Text(), "321701");
  EXPECT_EQ(Elapsed(), 21000);
}

TEST_F(ExchangeTest, AReplyOfNoCommandGivenUpIsTakenForTheReply) {
  link.Transmit("200100");
  for (const char* text : {"110900", "##", ""}) {
    control.Reply(text);
    const Reply reply = link.Transmit("321701");
    EXPECT_EQ(reply.Text(), text);
  }
  EXPECT_EQ(Elapsed(), 15000);
}

TEST_F(ExchangeTest, AReplyFromWithinTheTransmissionIsNotLost) {
  faulty.Before("Send", [&](const std::string&) { control.Raise("200100"); });
  const Reply reply = link.Transmit("200100");
  EXPECT_EQ(reply.Text(), "200100");
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(ExchangeTest, AControlThatCannotTransmitIsACommandWithoutReply) {
  for (const char* member : {"SetMessage", "Send"}) {
    files.content.clear();
    control.Raise("older");
    faulty.FailNext(member, error_number::kDeviceError);
    const Reply reply = link.Exchange("");
    EXPECT_EQ(reply.Text(), "") << member;
    EXPECT_EQ(Errors(), Lines{"EcrLinkX1 - 57 - Device I/O error"}) << member;
  }
  EXPECT_EQ(Elapsed(), 0);
}

TEST_F(ExchangeTest, AReplyThatCannotBeReadIsAnEmptyOne) {
  faulty.FailNext("RxMessage", error_number::kDeviceError);
  control.Reply("200100", 20ms);
  const Reply reply = link.Exchange("200100");
  EXPECT_EQ(reply.Text(), "");
  EXPECT_EQ(Errors(), Lines{"EcrLinkX1 - 57 - Device I/O error"});
  EXPECT_EQ(Elapsed(), 20);
}

TEST_F(ExchangeTest, AControlThatCannotSayWhetherTheRegisterIsThereCountsAsAbsent) {
  faulty.FailNext("DevicePresent", error_number::kDeviceError);
  Answer("Ok");
  EXPECT_FALSE(link.DeviceReady());
  EXPECT_EQ(Errors(), (Lines{"EcrLinkX1 - 57 - Device I/O error", "Dispositivo Spento o Non Collegato !"}));
}

TEST_F(ExchangeTest, TheControlHasNoReceiverOnceTheLinkIsGone) {
  {
    DeviceLink other(control, settings, logs, dialogs, loop, clock);
    control.Raise("200100");
    EXPECT_EQ(other.LatestReply({}).Text(), "200100");
  }
  EXPECT_FALSE(control.Listening());
}

}  // namespace
}  // namespace orvenza::test
