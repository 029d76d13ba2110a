#include "app/trace/trace_time.h"

#include <gtest/gtest.h>

#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

TEST(TraceStamp, ReadsWhatItWrites) {
  const TraceTime time = TraceTimeOf({2026, 11, 16, 9, 5, 7}) + 42ms;
  EXPECT_EQ(TraceStamp(time), "16/11/2026 09:05:07.042");
  EXPECT_EQ(ReadTraceStamp("16/11/2026 09:05:07.042"), time);
}

TEST(TraceStamp, IsNothingElse) {
  for (const char* text : {"", "16/11/2026 09:05:07", "16/11/2026 09:05:07,042", "31/02/2026 09:05:07.042",
                           "16/11/2026 24:05:07.042", "x6/11/2026 09:05:07.042"}) {
    EXPECT_EQ(ReadTraceStamp(text), std::nullopt) << text;
  }
}

TEST(TraceClock, CountsMillisecondsPastMidnight) {
  VirtualClock clock({2026, 12, 31, 23, 59, 59});
  const TraceClock trace(clock);
  clock.Advance(1999999us);
  EXPECT_EQ(TraceStamp(trace.Now()), "01/01/2027 00:00:00.999");
}

TEST(TraceClock, GoesOnWithTheUptimeUntilItIsTold) {
  VirtualClock clock({2026, 11, 16, 9, 0, 0});
  TraceClock trace(clock);
  EXPECT_EQ(trace.Jump(false), std::nullopt);
  clock.Advance(500ms);
  clock.SetTimeOfDay(9, 10, 0);
  EXPECT_EQ(TraceStamp(trace.Now()), "16/11/2026 09:00:00.500");
  EXPECT_EQ(TraceStamp(trace.Jump(false).value()), "16/11/2026 09:10:00.000");
  EXPECT_EQ(TraceStamp(trace.Now()), "16/11/2026 09:10:00.000");
}

TEST(TraceClock, TakesASmallDifferenceForNoJump) {
  VirtualClock clock({2026, 11, 16, 9, 0, 0});
  TraceClock trace(clock);
  clock.Advance(200ms);
  clock.SetTimeOfDay(9, 0, 1);
  EXPECT_EQ(trace.Jump(false), std::nullopt);
  EXPECT_TRUE(trace.Jump(true).has_value());
}

}  // namespace
}  // namespace orvenza::test
