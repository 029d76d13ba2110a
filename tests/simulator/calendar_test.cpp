#include "simulator/calendar.h"

#include <gtest/gtest.h>

#include <chrono>

namespace orvenza {
namespace {

TEST(Calendar, GoesForwardAndBackAcrossMidnightMonthAndYear) {
  using std::chrono::seconds;
  EXPECT_EQ(Later({2026, 12, 31, 23, 59, 59}, seconds(1)), (LocalTime{2027, 1, 1, 0, 0, 0}));
  EXPECT_EQ(Later({2027, 1, 1, 0, 0, 0}, seconds(-1)), (LocalTime{2026, 12, 31, 23, 59, 59}));
  EXPECT_EQ(Later({2027, 2, 28, 12, 0, 0}, seconds(86400)), (LocalTime{2027, 3, 1, 12, 0, 0}));
  EXPECT_EQ(Later({2028, 2, 28, 12, 0, 0}, seconds(86400)), (LocalTime{2028, 2, 29, 12, 0, 0}));
  EXPECT_EQ(Later({2026, 11, 16, 9, 5, 7}, seconds(0)), (LocalTime{2026, 11, 16, 9, 5, 7}));
}

TEST(Calendar, TellsTheTimeBetweenTwoMoments) {
  using std::chrono::seconds;
  EXPECT_EQ(TimeBetween({2026, 12, 31, 23, 59, 59}, {2027, 1, 1, 0, 0, 0}), seconds(1));
  EXPECT_EQ(TimeBetween({2028, 3, 1, 12, 0, 0}, {2028, 2, 28, 11, 59, 58}), seconds(-2 * 86400 - 2));
}

}  // namespace
}  // namespace orvenza
