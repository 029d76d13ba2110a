#include "windows_adapter/standin_bench.h"

namespace orvenza::test {
namespace {

using HostingTest = StandInBench;

TEST_F(HostingTest, CreatesTheControlAtTheFirstUseOnly) {
  EXPECT_EQ(Done(), Lines{});
  EXPECT_FALSE(adapter->PortOpen());
  EXPECT_EQ(Done(), (Lines{"created", "initialised", "site", "connected", "activated"}));
}

TEST_F(HostingTest, OneControlServesEveryOpening) {
  for (int i = 0; i < 3; ++i) adapter->SetReset(true);
  EXPECT_EQ(Done(), (Lines{"created", "initialised", "site", "connected", "activated", "set 18 True",
                           "set 18 True", "set 18 True"}));
}

TEST_F(HostingTest, SitesAControlFirstThatAsksForIt) {
  Behave("site-first");
  adapter->SetReset(true);
  EXPECT_EQ(Done(), (Lines{"created", "site", "initialised", "connected", "activated", "set 18 True"}));
}

TEST_F(HostingTest, FindsInTheRegistryWhatTheControlAsksForThere) {
  Behave("registry-status site-first");
  adapter->SetReset(true);
  EXPECT_EQ(Done(), (Lines{"created", "site", "initialised", "connected", "activated", "set 18 True"}));
}

TEST_F(HostingTest, InitialisesEachKindOfPersistence) {
  for (const char* state : {"stream", "storage", "bag"}) {
    Behave(std::string("state=") + state);
    adapter.emplace();
    Done();
    adapter->SetReset(true);
    EXPECT_EQ(Done(), (Lines{"created", "initialised", "site", "connected", "activated", "set 18 True"}))
        << state;
  }
}

TEST_F(HostingTest, FallsBackWhenTheFirstKindOfPersistenceIsNotImplemented) {
  Behave("state=unimplemented-stream");
  adapter->SetReset(true);
  EXPECT_EQ(Done(), (Lines{"created", "initialised", "site", "connected", "activated", "set 18 True"}));
}

TEST_F(HostingTest, AControlWithoutPersistenceNeedsNone) {
  Behave("state=none");
  adapter->SetReset(true);
  EXPECT_EQ(Done(), (Lines{"created", "site", "connected", "activated", "set 18 True"}));
}

TEST_F(HostingTest, ShowsAControlThatKnowsNoOtherActivation) {
  Behave("shows-only");
  adapter->SetReset(true);
  EXPECT_EQ(Done(), (Lines{"created", "initialised", "site", "connected", "activated", "set 18 True"}));
}

TEST_F(HostingTest, AControlThatIsInvisibleAtRunTimeMayStayInactive) {
  Behave("invisible");
  Open();
  EXPECT_TRUE(adapter->PortOpen());
  adapter.reset();
  EXPECT_EQ(Done(), (Lines{"disconnected", "closed", "no site", "released"}));
}

TEST_F(HostingTest, LetsGoOfTheControlInOrder) {
  Open();
  adapter.reset();
  EXPECT_EQ(Done(), (Lines{"disconnected", "deactivated", "closed", "no site", "released"}));
}

TEST_F(HostingTest, KeepsItsWindowWhenAnotherProgramClosesAllWindows) {
  Open();
  const HWND site = ::FindWindowW(L"EcrLinkX1", L"Orvenza EcrLinkX1");
  ::SendMessageW(site, WM_CLOSE, 0, 0);
  EXPECT_TRUE(::IsWindow(site));
  EXPECT_TRUE(adapter->PortOpen());
}

TEST_F(HostingTest, LeavesNoWindowBehind) {
  Open();
  const HWND site = ::FindWindowW(L"EcrLinkX1", L"Orvenza EcrLinkX1");
  ASSERT_NE(site, nullptr);
  EXPECT_FALSE(::IsWindowVisible(site));
  adapter.reset();
  EXPECT_FALSE(::IsWindow(site));
}

TEST_F(HostingTest, RepliesOnTheirWayAreDroppedWithTheControl) {
  Open();
  Send("321701");
  adapter.reset();
  pump.Dispatch();
  EXPECT_EQ(listener.heard, Lines{});
}

TEST_F(HostingTest, AnotherAdapterHasAnotherControl) {
  Open();
  EcrLinkAdapter other;
  EXPECT_FALSE(other.PortOpen());
  EXPECT_TRUE(adapter->PortOpen());
}

}  // namespace
}  // namespace orvenza::test
