#include "device/clock_correction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "simulator/virtual_clock.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

/// Corrections every 30 seconds, with a tolerance of 60 seconds.
class ClockCorrectionTest : public ::testing::Test {
 protected:
  ClockCorrectionTest() {
    settings.ErrPath = "Err.txt";
    settings.PcTimeCorrection = 30;
    settings.TimeShift = 60;
  }

  /// Whether a PC that shows this time is corrected by a register that shows `hhmm`.
  bool Corrects(int hour, int minute, int second, const std::string& hhmm,
                std::chrono::nanoseconds fraction = {}) {
    clock.SetTimeOfDay(hour, minute, second);
    clock.Advance(fraction);
    const std::size_t before = clock.TimesSet().size();
    correction.Correct("4201161126" + hhmm);
    return clock.TimesSet().size() > before;
  }

  VirtualClock clock;
  MemoryFiles files;
  AppSettings settings;
  Logs logs{files, clock, settings, "C:\\shop"};
  ClockCorrection correction{clock, settings, logs};
};

TEST_F(ClockCorrectionTest, TheRegistersTimeIsTakenWithItsSecondsAsZero) {
  EXPECT_TRUE(Corrects(9, 0, 0, "1437"));
  EXPECT_EQ(clock.TimesSet().back(), (LocalTime{2026, 11, 16, 14, 37, 0}));
}

TEST_F(ClockCorrectionTest, ADifferenceOfTheToleranceIsLeftAlone) {
  EXPECT_FALSE(Corrects(12, 1, 0, "1200"));
  EXPECT_FALSE(Corrects(12, 1, 0, "1200", 900ms));
  EXPECT_FALSE(Corrects(11, 59, 0, "1200"));
}

TEST_F(ClockCorrectionTest, ADifferenceOfOneSecondMoreIsCorrected) {
  EXPECT_TRUE(Corrects(12, 1, 1, "1200"));
  EXPECT_TRUE(Corrects(11, 58, 59, "1200"));
}

TEST_F(ClockCorrectionTest, IsNotMadeNearMidnight) {
  EXPECT_FALSE(Corrects(0, 0, 0, "1200"));
  EXPECT_FALSE(Corrects(0, 2, 59, "1200", 999ms));
  EXPECT_FALSE(Corrects(23, 57, 0, "1200", 1ms));
  EXPECT_FALSE(Corrects(23, 59, 59, "1200"));
}

/// A clock for which midnight passes between two readings; the next one is noon.
class MidnightPasses : public VirtualClock {
 public:
  double SecondsSinceMidnight() const override {
    constexpr double kReadings[] = {86399, 300, 12 * 3600};
    return kReadings[std::min<std::size_t>(readings_++, 2)];
  }

 private:
  mutable std::size_t readings_ = 0;
};

TEST_F(ClockCorrectionTest, IsNotMadeWhereMidnightPassesMeanwhile) {
  MidnightPasses midnight;
  ClockCorrection atMidnight(midnight, settings, logs);
  atMidnight.Correct("42011611261400");
  EXPECT_EQ(midnight.TimesSet(), std::vector<LocalTime>{});
  atMidnight.Correct("42011611261400");
  EXPECT_EQ(midnight.TimesSet().size(), 1U) << "at noon";
}

TEST_F(ClockCorrectionTest, IsMadeOutsideTheGuard) {
  EXPECT_TRUE(Corrects(0, 3, 0, "1200"));
  EXPECT_TRUE(Corrects(23, 57, 0, "1200"));
}

TEST_F(ClockCorrectionTest, TheGuardGrowsWithTheToleranceInWholeSeconds) {
  settings.TimeShift = 10.6;
  EXPECT_FALSE(Corrects(0, 2, 10, "1200", 900ms));
  EXPECT_TRUE(Corrects(0, 2, 11, "1200"));
}

TEST_F(ClockCorrectionTest, CountsWhatItHasCorrected) {
  EXPECT_FALSE(Corrects(12, 0, 0, "1200"));
  EXPECT_EQ(correction.Corrections(), 0U);
  EXPECT_TRUE(Corrects(12, 0, 0, "1400"));
  EXPECT_EQ(correction.Corrections(), 1U);
}

TEST_F(ClockCorrectionTest, IsNotMadeWhenSwitchedOff) {
  settings.PcTimeCorrection = 0;
  EXPECT_FALSE(Corrects(12, 0, 0, "1400"));
}

TEST_F(ClockCorrectionTest, ARefusalIsLoggedOnce) {
  clock.RefuseSetTime(true);
  correction.Correct("42011611261400");
  correction.Correct("42011611261500");
  EXPECT_EQ(correction.Corrections(), 0U);
  EXPECT_EQ(files.content["Err.txt"], "16/11/2026 09:00:00 - Timer1 - 70 - Permission denied\r\n");
  clock.RefuseSetTime(false);
  correction.Correct("42011611261400");
  EXPECT_EQ(clock.Now().hour, 14);
}

TEST_F(ClockCorrectionTest, WhatFollowsTheMinutesDoesNotCount) {
  EXPECT_TRUE(Corrects(9, 0, 0, "143759xyz"));
  EXPECT_EQ(clock.TimesSet().back(), (LocalTime{2026, 11, 16, 14, 37, 0}));
}

TEST_F(ClockCorrectionTest, TheDayHasItsFirstAndItsLastMinute) {
  EXPECT_TRUE(Corrects(12, 0, 0, "0000"));
  EXPECT_TRUE(Corrects(12, 0, 0, "2359"));
}

TEST_F(ClockCorrectionTest, AReplyOfAnotherFormIsIgnored) {
  for (const char* time : {"", "1", "14", "140", "2400", "1460", "a100", "14 0", "-100", "1.00", " 100"}) {
    EXPECT_FALSE(Corrects(9, 0, 0, time)) << time;
  }
  correction.Correct("");
  EXPECT_EQ(files.content.size(), 0U);
}

}  // namespace
}  // namespace orvenza::test
