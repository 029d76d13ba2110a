#include "core/poll_timer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

#include "simulator/virtual_clock.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

class PollTimerTest : public ::testing::Test {
 protected:
  VirtualClock clock;
  PollTimer timer{clock};
};

TEST_F(PollTimerTest, IsOffAtFirst) { EXPECT_FALSE(timer.Enabled()); }

TEST_F(PollTimerTest, ATickIsDue500MillisecondsAfterSwitchingOn) {
  clock.Advance(1234ms);
  timer.SetEnabled(true);
  EXPECT_EQ(timer.TimeLeft(), 500ms);
  clock.Advance(499ms);
  EXPECT_EQ(timer.TimeLeft(), 1ms);
  clock.Advance(1ms);
  EXPECT_EQ(timer.TimeLeft(), 0ms);
}

TEST_F(PollTimerTest, ATickLongOverdueIsDueNow) {
  timer.SetEnabled(true);
  clock.Advance(1h);
  EXPECT_EQ(timer.TimeLeft(), 0ms);
}

TEST_F(PollTimerTest, SwitchingOnAgainStartsAWholeInterval) {
  timer.SetEnabled(true);
  clock.Advance(400ms);
  timer.SetEnabled(true);
  EXPECT_EQ(timer.TimeLeft(), 500ms);
}

TEST_F(PollTimerTest, APauseSwitchesOffAndThenOnAgain) {
  timer.SetEnabled(true);
  {
    const PollingPause pause(timer);
    EXPECT_FALSE(timer.Enabled());
    clock.Advance(2s);
  }
  EXPECT_TRUE(timer.Enabled());
  EXPECT_EQ(timer.TimeLeft(), 500ms);
}

TEST_F(PollTimerTest, APauseLeavesATimerOffThatWasOff) {
  { const PollingPause pause(timer); }
  EXPECT_FALSE(timer.Enabled());
}

TEST_F(PollTimerTest, OnlyTheOutermostOfNestedPausesSwitchesOn) {
  timer.SetEnabled(true);
  {
    const PollingPause outer(timer);
    { const PollingPause inner(timer); }
    EXPECT_FALSE(timer.Enabled());
  }
  EXPECT_TRUE(timer.Enabled());
}

TEST_F(PollTimerTest, APauseEndsAlsoWithAnException) {
  timer.SetEnabled(true);
  try {
    const PollingPause pause(timer);
    throw std::runtime_error("inside");
  } catch (const std::runtime_error&) {
  }
  EXPECT_TRUE(timer.Enabled());
}

}  // namespace
}  // namespace orvenza
