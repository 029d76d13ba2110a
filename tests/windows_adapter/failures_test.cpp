#include <functional>

#include "windows_adapter/standin_bench.h"

namespace orvenza::test {
namespace {

const std::string kNotRegistered =
    "429 Component can't create object ( EcrLinkXControl1.EcrLinkX: 0x800401F3 not registered )";

/// Every member by its number.
const struct {
  int number;
  std::function<void(EcrLink&)> use;
} kMembers[] = {
    {1, [](EcrLink& link) { link.RxMessage(); }},
    {2, [](EcrLink& link) { link.Send(); }},
    {5, [](EcrLink& link) { link.DevicePresent(); }},
    {6, [](EcrLink& link) { link.PortOpen(); }},
    {6, [](EcrLink& link) { link.SetPortOpen(false); }},
    {7, [](EcrLink& link) { link.SetProperty(LinkProperty::kBaudRate, 9600); }},
    {16, [](EcrLink& link) { link.SetProperty(LinkProperty::kPortNumber, 1); }},
    {17, [](EcrLink& link) { link.SetMessage("321701"); }},
    {18, [](EcrLink& link) { link.SetReset(true); }},
};

using FailuresTest = StandInBench;

TEST_F(FailuresTest, AControlThatIsNotRegisteredFailsEveryMember) {
  UnregisterStandIn();
  for (const auto& member : kMembers) {
    EXPECT_EQ(Failure([&] { member.use(*adapter); }), kNotRegistered) << member.number;
  }
}

TEST_F(FailuresTest, AControlRegisteredLaterWorksFromTheNextReset) {
  UnregisterStandIn();
  EXPECT_EQ(Failure([&] { adapter->SetReset(true); }), kNotRegistered);
  RegisterStandIn(StandInLibraryPath());
  EXPECT_EQ(Failure([&] { adapter->SetPortOpen(true); }), kNotRegistered);
  EXPECT_EQ(Done(), Lines{});
  Open();
  EXPECT_TRUE(adapter->PortOpen());
}

TEST_F(FailuresTest, ALibraryThatCannotBeLoadedIsAControlThatCannotBeCreated) {
  folder.Write("other.dll", "no library");
  for (const char* name : {"missing.dll", "other.dll"}) {
    RegisterStandIn(folder.Native(name).wstring());
    const auto failure = Failure([&] { adapter->SetReset(true); });
    EXPECT_TRUE(failure.starts_with("429 Component can't create object ( EcrLinkXControl1.EcrLinkX: 0x8"))
        << failure;
    RegisterStandIn(StandInLibraryPath());
    EXPECT_EQ(Failure([&] { adapter->SetReset(true); }), "");
    adapter.emplace();
  }
}

TEST_F(FailuresTest, TheControlsRefusalDuringCreationIsTheReason) {
  const struct {
    const char* behaviour;
    const char* reason;
  } rows[] = {
      {"refuses", "EcrLinkXControl1.EcrLinkX: 0x80040112 not licensed on this PC"},
      {"no-members", "members: 0x80004002"},
      {"no-state", "initialisation: 0x80070005"},
      {"no-site", "site: 0x80070005"},
      {"no-events", "events: 0x80040200"},
      {"types=none no-events", "events: 0x80040200"},
      {"deaf", "events: 0x80040201"},
      {"few-events", "events: 2 of 4 )"},
      {"few-events inherited", "events: 1 of 4 )"},
      {"custom-events", "events: no dispatch interface, but of kind 3 )"},
      {"asleep", "activation: 0x80004005"},
  };
  for (const auto& row : rows) {
    Behave(row.behaviour);
    const auto failure = Failure([&] { adapter->SetReset(true); });
    EXPECT_TRUE(failure.starts_with(std::string("429 Component can't create object ( ") + row.reason))
        << failure;
  }
}

TEST_F(FailuresTest, AControlThatRefusedIsLetGo) {
  Behave("asleep");
  EXPECT_NE(Failure([&] { adapter->SetReset(true); }), "");
  EXPECT_EQ(Done(), (Lines{"created", "initialised", "site", "connected", "disconnected", "closed", "no site",
                           "released"}));
  Behave("");
  Open();
  EXPECT_TRUE(adapter->PortOpen());
}

TEST_F(FailuresTest, AMemberThatFailsIsNamedWithItsNumber) {
  Open();
  for (const auto& member : kMembers) {
    const std::string number = std::to_string(member.number);
    Behave("fails=" + number + ":0x80004005");
    const auto failure = Failure([&] { member.use(*adapter); });
    EXPECT_TRUE(failure.starts_with("57 Device I/O error ( member " + number + ": 0x80004005")) << failure;
    Behave("");
    EXPECT_EQ(Failure([&] { member.use(*adapter); }), "");
  }
}

TEST_F(FailuresTest, TheDescriptionOfAMemberIsPassedOn) {
  Open();
  Behave("fails=6:exception");
  EXPECT_EQ(Failure([&] { adapter->PortOpen(); }),
            "57 Device I/O error ( member 6: 0x80070005 La stampante \u00E8 guasta )");
  Behave("fails=6:deferred");
  EXPECT_EQ(Failure([&] { adapter->PortOpen(); }),
            "57 Device I/O error ( member 6: 0x800A0044 La carta \u00E8 finita )");
}

TEST_F(FailuresTest, AnExceptionIsAFailureWhateverItsNumber) {
  Open();
  Behave("fails=2:unfailing");
  const auto failure = Failure([&] { Send("321701"); });
  EXPECT_TRUE(failure.starts_with("57 Device I/O error ( member 2: 0x80020009")) << failure;
}

TEST_F(FailuresTest, AValueOfAWrongKindIsAFailureOfItsMember) {
  Open();
  Behave("fails=5:text");
  const auto failure = Failure([&] { adapter->DevicePresent(); });
  EXPECT_TRUE(failure.starts_with("57 Device I/O error ( member 5: 0x80020005")) << failure;
}

TEST_F(FailuresTest, AFailingMemberDoesNotCostTheControl) {
  Open();
  Behave("fails=6:exception");
  EXPECT_NE(Failure([&] { adapter->PortOpen(); }), "");
  adapter->SetReset(true);
  EXPECT_EQ(Done(), Lines{"set 18 True"});
}

TEST_F(FailuresTest, AControlThatIsGoneFailsUntilTheNextReset) {
  Open();
  Behave("dies-with=2001");
  EXPECT_EQ(Failure([&] { Send("200101"); }),
            "57 Device I/O error ( member 2: 0x80010108 the control is gone )");
  EXPECT_EQ(Failure([&] { adapter->DevicePresent(); }),
            "57 Device I/O error ( member 5: 0x80010108 the control is gone )");
  Done();
  adapter->SetReset(true);
  EXPECT_EQ(Done(), (Lines{"disconnected", "deactivated", "closed", "no site", "released", "created",
                           "initialised", "site", "connected", "activated", "set 18 True"}));
}

TEST_F(FailuresTest, EveryKindOfDeathIsRecognised) {
  const char* const kWays[] = {"0x80010007", "0x80010012", "0x80010108", "0x80010114",
                               "0x800401FD", "0x800401FF", "0x800706BA", "0x800706BE"};
  for (const std::string way : kWays) {
    Open();
    Behave("fails=5:" + way);
    EXPECT_NE(Failure([&] { adapter->DevicePresent(); }), "");
    Behave("");
    adapter->SetReset(true);
    EXPECT_EQ(Done().at(5), "created") << way;
  }
}

TEST_F(FailuresTest, EventsOfTheNewControlAreHeard) {
  Open();
  Behave("dies-with=2001");
  EXPECT_NE(Failure([&] { Send("200101"); }), "");
  Open();
  Exchange("321701");
  EXPECT_EQ(listener.heard, Lines{"reply"});
  EXPECT_EQ(adapter->RxMessage(), "321700");
}

TEST_F(FailuresTest, AControlGoneForGoodIsNotRegisteredAnyMore) {
  Open();
  Behave("dies-with=2001");
  EXPECT_NE(Failure([&] { Send("200101"); }), "");
  UnregisterStandIn();
  EXPECT_EQ(Failure([&] { adapter->SetReset(true); }), kNotRegistered);
  EXPECT_EQ(Failure([&] { adapter->SetPortOpen(true); }), kNotRegistered);
}

TEST_F(FailuresTest, AThreadThatIsNoUserInterfaceCannotHaveTheControl) {
  adapter.reset();
  ::OleUninitialize();
  ASSERT_HRESULT_SUCCEEDED(::CoInitializeEx(nullptr, COINIT_MULTITHREADED));
  {
    EcrLinkAdapter other;
    const auto failure = Failure([&] { other.SetReset(true); });
    EXPECT_TRUE(failure.starts_with("429 Component can't create object ( OLE: 0x80010106")) << failure;
  }
  ::CoUninitialize();
  ASSERT_HRESULT_SUCCEEDED(::OleInitialize(nullptr));
}

}  // namespace
}  // namespace orvenza::test
