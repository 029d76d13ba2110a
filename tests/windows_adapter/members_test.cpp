#include "windows_adapter/standin_bench.h"

namespace orvenza::test {
namespace {

class MembersTest : public StandInBench {
 protected:
  /// The properties set on a fresh stand-in with this behaviour by `action`.
  template <typename Action>
  Lines SetBy(const std::string& behaviour, Action action) {
    Behave(behaviour);
    EcrLinkAdapter other;
    other.SetReset(true);
    Done();
    action(other);
    return Done();
  }
};

TEST_F(MembersTest, IntegersArriveUnderTheirNumbers) {
  const struct {
    LinkProperty property;
    int value;
    const char* arrived;
  } rows[] = {
      {LinkProperty::kBaudRate, 19200, "set 7 19200"},
      {LinkProperty::kParity, 4, "set 8 4"},
      {LinkProperty::kDataBits, 7, "set 9 7"},
      {LinkProperty::kStopBits, 2, "set 10 2"},
      {LinkProperty::kIdentifier, 233, "set 11 233"},
      {LinkProperty::kAcknowledgementWait, 10001, "set 12 10001"},
      {LinkProperty::kEndOfTextWait, 50000, "set 13 50000"},
      {LinkProperty::kFrameRetries, 3, "set 14 3"},
      {LinkProperty::kMessageRetries, 5, "set 15 5"},
      {LinkProperty::kPortNumber, 16, "set 16 16"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(SetBy("", [&](EcrLink& link) { link.SetProperty(row.property, row.value); }),
              Lines{row.arrived});
  }
}

TEST_F(MembersTest, IntegersHaveTheTypeThatTheControlDeclares) {
  const struct {
    const char* behaviour;
    int value;
    const char* arrived;
  } rows[] = {
      {"", 2147483647, "set 13 2147483647"},  {"", -1, "set 13 -1"},
      {"short", 32767, "set 13 32767"},       {"short", -32768, "set 13 -32768"},
      {"short variables", 777, "set 13 777"}, {"types=none", 50000, "set 13 50000"},
      {"bytes", 255, "set 13 255"},           {"bytes", 0, "set 13 0"},
  };
  for (const auto& row : rows) {
    const auto arrived = SetBy(
        row.behaviour, [&](EcrLink& link) { link.SetProperty(LinkProperty::kEndOfTextWait, row.value); });
    EXPECT_EQ(arrived, Lines{row.arrived}) << row.behaviour;
  }
}

TEST_F(MembersTest, AnIntegerThatDoesNotFitIsForTheControlToJudge) {
  Behave("short");
  adapter->SetReset(true);
  const auto failure = Failure([&] { adapter->SetProperty(LinkProperty::kEndOfTextWait, 50000); });
  EXPECT_TRUE(failure.starts_with("57 Device I/O error ( member 13: 0x80020005")) << failure;
}

TEST_F(MembersTest, TheResetFlagArrivesAsItIs) {
  adapter->SetReset(false);
  EXPECT_EQ(Done().back(), "set 18 False");
  adapter->SetReset(true);
  EXPECT_EQ(Done().back(), "set 18 True");
}

TEST_F(MembersTest, ThePortIsOpenedReadBackAndClosed) {
  Open();
  EXPECT_TRUE(adapter->PortOpen());
  adapter->SetPortOpen(false);
  EXPECT_EQ(Done(), (Lines{"set 6 False", "port closed"}));
  EXPECT_FALSE(adapter->PortOpen());
}

TEST_F(MembersTest, BooleansMayBeReadAsNumbers) {
  Behave("flags-as-numbers");
  Script("absent 1");
  Open();
  EXPECT_TRUE(adapter->PortOpen());
  EXPECT_FALSE(adapter->DevicePresent());
  EXPECT_TRUE(adapter->DevicePresent());
}

TEST_F(MembersTest, WhatTheControlRefusesForTheStateOfThePortIsAFailure) {
  const auto failed = [](int member) {
    return "57 Device I/O error ( member " + std::to_string(member) + ": 0x8000FFFF";
  };
  const std::string closed = Failure([&] { Send("321701"); });
  EXPECT_TRUE(closed.starts_with(failed(2))) << closed;
  Open();
  const std::string open = Failure([&] { adapter->SetProperty(LinkProperty::kParity, 1); });
  EXPECT_TRUE(open.starts_with(failed(8))) << open;
}

TEST_F(MembersTest, APortThatDoesNotOpenReadsClosed) {
  Script("port-fails 1");
  Open();
  EXPECT_FALSE(adapter->PortOpen());
  adapter->SetPortOpen(true);
  EXPECT_TRUE(adapter->PortOpen());
}

TEST_F(MembersTest, TheRegisterIsPresentOrAbsent) {
  Script("absent 2");
  Open();
  EXPECT_FALSE(adapter->DevicePresent());
  EXPECT_FALSE(adapter->DevicePresent());
  EXPECT_TRUE(adapter->DevicePresent());
}

TEST_F(MembersTest, ATextIsSentAndItsReplyReadAfterTheEvent) {
  Open();
  Send("321701");
  EXPECT_EQ(listener.heard, Lines{});
  EXPECT_EQ(Done(), (Lines{"set 17 321701", "call 2", "sent 321701"}));
  pump.Dispatch();
  EXPECT_EQ(listener.heard, Lines{"reply"});
  EXPECT_EQ(adapter->RxMessage(), "321700");
}

TEST_F(MembersTest, BytesOfTheMessageAreTheLettersOfWindows1252) {
  adapter->SetReset(true);
  Done();
  adapter->SetMessage("1058 caff\xE8 \x80\x8E");
  adapter->SetMessage("\x81\x8D\x8F\x90\x9D");
  adapter->SetMessage("");
  EXPECT_EQ(Done(), (Lines{"set 17 1058 caff\u00E8 \u20AC\u017D",
                           "set 17 \xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D", "set 17 "}));
}

TEST_F(MembersTest, AReplyHasTheBytesOfWindows1252) {
  Script("on 2001 reply ERR caff\xE8 \x80\x81");
  Open();
  Exchange("200101");
  EXPECT_EQ(adapter->RxMessage(), "ERR caff\xE8 \x80\x81");
}

TEST_F(MembersTest, AReplyMayBeEmptyAndThereIsNoneAtFirst) {
  Script("on 2001 reply \"\"");
  Open();
  EXPECT_EQ(adapter->RxMessage(), "");
  Exchange("200101");
  EXPECT_EQ(listener.heard, Lines{"reply"});
  EXPECT_EQ(adapter->RxMessage(), "");
}

}  // namespace
}  // namespace orvenza::test
