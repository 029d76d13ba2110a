#include "core/event_loop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "support/test_clock.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

class EventLoopTest : public ::testing::Test {
 protected:
  /// Schedules an event after `delay` that records when it ran.
  void EventAfter(nanoseconds delay) {
    clock.After(delay, [this] { moments.push_back(clock.Uptime()); });
  }
  void EndAfter(nanoseconds delay, ProgramEnd end = {}) {
    clock.After(delay, [this, end] { loop.RequestEnd(end); });
  }

  test::TestClock clock;
  EventLoop loop{clock, clock};
  std::vector<nanoseconds> moments;
};

TEST_F(EventLoopTest, APauseRunsItsWholeTimeAlthoughEventsArrive) {
  EventAfter(100ms);
  EventAfter(255ms);
  EventAfter(1001ms);
  loop.Pause(1000ms);
  EXPECT_EQ(clock.Uptime(), 1000ms);
  EXPECT_EQ(moments, (std::vector<nanoseconds>{100ms, 255ms}));
}

TEST_F(EventLoopTest, APauseRunsToItsEndAlthoughTheProgramIsToEnd) {
  EndAfter(100ms);
  EXPECT_NO_THROW(loop.Pause(1000ms));
  EXPECT_EQ(clock.Uptime(), 1000ms);
  EXPECT_TRUE(loop.EndRequested());
}

TEST_F(EventLoopTest, APauseOfNoLengthReturnsAtOnce) {
  EventAfter(0ms);
  loop.Pause(0ms);
  EXPECT_EQ(clock.Uptime(), 0ms);
}

TEST_F(EventLoopTest, AWaitEndsWithTheFirstEvent) {
  EventAfter(3ms);
  loop.Wait();
  EXPECT_EQ(clock.Uptime(), 3ms);
  EXPECT_EQ(moments.size(), 1U);
}

TEST_F(EventLoopTest, AWaitLastsOneSliceByDefault) {
  loop.Wait();
  EXPECT_EQ(clock.Uptime(), 10ms);
  loop.Wait(500ms);
  EXPECT_EQ(clock.Uptime(), 510ms);
}

TEST_F(EventLoopTest, AWaitDoesNotEvenBeginOnceTheProgramIsToEnd) {
  loop.RequestEnd({});
  EventAfter(0ms);
  EXPECT_THROW(loop.Wait(), ProgramEnd);
  EXPECT_EQ(clock.Uptime(), 0ms);
  EXPECT_TRUE(moments.empty());
}

TEST_F(EventLoopTest, AnEndAskedForDuringAWaitIsThrownFromIt) {
  EndAfter(4ms);
  EXPECT_THROW(loop.Wait(), ProgramEnd);
  EXPECT_EQ(clock.Uptime(), 4ms);
}

TEST_F(EventLoopTest, SlicesAndDeliveriesNeverEndTheProgram) {
  loop.RequestEnd({});
  EXPECT_NO_THROW(loop.Slice());
  EXPECT_NO_THROW(loop.Dispatch());
  EXPECT_THROW(loop.CheckEnd(), ProgramEnd);
}

TEST_F(EventLoopTest, ASliceIsTenMillisecondsOrUntilAnEvent) {
  loop.Slice();
  EXPECT_EQ(clock.Uptime(), 10ms);
  EventAfter(1ms);
  loop.Slice();
  EXPECT_EQ(clock.Uptime(), 11ms);
}

TEST_F(EventLoopTest, ADeliveryDoesNotSleep) {
  EventAfter(0ms);
  EventAfter(1ms);
  loop.Dispatch();
  EXPECT_EQ(clock.Uptime(), 0ms);
  EXPECT_EQ(moments.size(), 1U);
}

TEST_F(EventLoopTest, TheFirstRequestToEndCounts) {
  loop.RequestEnd({.unload = true});
  loop.RequestEnd({.unload = false});
  try {
    loop.CheckEnd();
    FAIL() << "the end was asked for";
  } catch (const ProgramEnd& end) {
    EXPECT_TRUE(end.unload);
  }
}

TEST_F(EventLoopTest, NothingEndsUnasked) {
  EXPECT_FALSE(loop.EndRequested());
  EXPECT_NO_THROW(loop.CheckEnd());
}

}  // namespace
}  // namespace orvenza
