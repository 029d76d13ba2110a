#include "platform/windows/steady_time.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/windows_clock.h"

namespace orvenza::test {
namespace {

using std::chrono::nanoseconds;

nanoseconds Counted() {
  LARGE_INTEGER frequency{};
  LARGE_INTEGER ticks{};
  ::QueryPerformanceFrequency(&frequency);
  ::QueryPerformanceCounter(&ticks);
  return DurationOfTicks(ticks.QuadPart, frequency.QuadPart);
}

// The PC clock counts from another year, so its value would lie outside.
TEST(SteadyTime, IsThatOfThePerformanceCounter) {
  const auto before = Counted();
  const auto steady = SteadyTime();
  const auto uptime = WindowsClock().Uptime();
  const auto after = Counted();
  EXPECT_LE(before, steady);
  EXPECT_LE(steady, uptime);
  EXPECT_LE(uptime, after);
}

TEST(DurationOfTicks, IsExactOverYears) {
  constexpr std::int64_t kYear = 365 * 86400;
  const struct {
    std::int64_t ticks;
    std::int64_t frequency;
    std::int64_t duration;
  } rows[] = {
      {0, 10'000'000, 0},
      {1, 10'000'000, 100},
      {9'999'999, 10'000'000, 999'999'900},
      {10'000'000, 10'000'000, 1'000'000'000},
      {1, 3'579'545, 279},
      {10'000'000 * kYear + 1, 10'000'000, kYear * 1'000'000'000 + 100},
      {4'000'000'000 * kYear + 3'999'999'999, 4'000'000'000, kYear * 1'000'000'000 + 999'999'999},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(DurationOfTicks(row.ticks, row.frequency), nanoseconds(row.duration)) << row.ticks;
  }
}

}  // namespace
}  // namespace orvenza::test
