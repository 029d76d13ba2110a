#include "app/trace/trace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

class TraceTest : public ::testing::Test {
 protected:
  TraceTest() {
    disk.MakeFolder("C:\\Orvenza");
    disk.MakeFolder("D:\\t");
  }

  std::string Content(int number = 0) const {
    return disk.Content(TraceFile::PathOf("D:\\t\\trace.txt", number)).value_or("missing");
  }
  std::string Errors() const { return disk.Content("C:\\Orvenza\\Err.txt").value_or(""); }

  VirtualClock clock;
  VirtualDisk disk{clock};
  LogPaths paths{"C:\\Orvenza\\Log.txt", "C:\\Orvenza\\Err.txt"};
  Logs logs{disk.FileSeam(), clock, paths, "C:\\Orvenza"};
  Trace trace{disk.FileSeam(), clock, logs, "D:\\t\\trace.txt"};
};

TEST_F(TraceTest, HasEachLineOnTheDiskAtOnce) {
  trace.Add("sent", "321700");
  EXPECT_EQ(Content(), "16/11/2026 09:00:00.000  sent      321700\r\n");
  clock.Advance(6ms);
  trace.Add("reply", "321700");
  EXPECT_EQ(Content(),
            "16/11/2026 09:00:00.000  sent      321700\r\n16/11/2026 09:00:00.006  reply     321700\r\n");
}

TEST_F(TraceTest, GathersHoursOfIdleTicksInOneLine) {
  for (int tick = 0; tick < 14'400; ++tick) {
    clock.Stall(500ms);
    trace.Tick();
  }
  EXPECT_EQ(Content(), "missing");
  trace.Add("menu", "Esci");
  EXPECT_EQ(
      Content(),
      "16/11/2026 09:00:00.500  tick      14400 idle ones\r\n16/11/2026 11:00:00.000  menu      Esci\r\n");
}

TEST_F(TraceTest, TakesTheTickOfAnEventForNoIdleOne) {
  trace.Tick();
  clock.Stall(500ms);
  trace.Tick();
  clock.Stall(3ms);  // On a real PC time passes within a tick.
  trace.Add("taken", "1.txt");
  EXPECT_EQ(Content(),
            "16/11/2026 09:00:00.000  tick      idle\r\n16/11/2026 09:00:00.500  tick\r\n"
            "16/11/2026 09:00:00.503  taken     1.txt\r\n");
}

TEST_F(TraceTest, SaysWhenTheClockOfThePcJumps) {
  trace.Add("sent", "1");
  clock.Advance(100ms);
  clock.SetTimeOfDay(12, 0, 0);
  trace.Add("sent", "2");
  EXPECT_EQ(Content(),
            "16/11/2026 09:00:00.000  sent      1\r\n"
            "16/11/2026 09:00:00.100  clock     jumps to 16/11/2026 12:00:00.000\r\n"
            "16/11/2026 12:00:00.000  sent      2\r\n");
}

TEST_F(TraceTest, KeepsFiveFilesOfOneMegabyte) {
  trace.Start({{{}, "start", "here"}});
  const std::string text(9'000, 'x');
  for (int i = 0; i < 700; ++i) trace.Add("file", text);
  for (int number = 0; number < 5; ++number) {
    EXPECT_LE(Content(number).size(), TraceFile::kMostBytes + 100) << number;
    EXPECT_TRUE(Content(number).starts_with("16/11/2026 09:00:00.000  continued here\r\n")) << number;
  }
  EXPECT_GT(Content(1).size(), TraceFile::kMostBytes - 10'000);
  EXPECT_EQ(Content(5), "missing");
  EXPECT_EQ(disk.Paths().size(), 5u);
}

TEST_F(TraceTest, GoesOnBehindTheLinesOfAnEarlierRun) {
  disk.Put("D:\\t\\trace.txt", std::string(TraceFile::kMostBytes, 'x'));
  trace.Add("sent", "1");
  EXPECT_EQ(Content(), "16/11/2026 09:00:00.000  sent      1\r\n");
  EXPECT_EQ(Content(1).size(), TraceFile::kMostBytes);
}

TEST_F(TraceTest, LogsAFailureOnceAMinute) {
  disk.SetAway("D:", true);
  for (int i = 0; i < 1000; ++i) {
    trace.Add("sent", "1");
    clock.Advance(100ms);
  }
  EXPECT_EQ(Errors(),
            "16/11/2026 09:00:00 - Trace - 76 - Path not found ( D:\\t\\trace.txt )\r\n"
            "16/11/2026 09:01:00 - Trace - 76 - Path not found ( D:\\t\\trace.txt )\r\n");
}

TEST_F(TraceTest, TriesNothingForAMinuteAfterAFailure) {
  disk.SetAway("D:", true);
  trace.Add("sent", "1");
  disk.SetAway("D:", false);
  clock.Advance(59s);
  trace.Add("sent", "2");
  EXPECT_EQ(Content(), "missing");
  clock.Advance(1s);
  trace.Add("sent", "3");
  EXPECT_EQ(Content(),
            "\r\n16/11/2026 09:01:00.000  lost      2 lines\r\n16/11/2026 09:01:00.000  sent      3\r\n");
}

TEST_F(TraceTest, SurvivesAFullDiskAndFilesThatCannotBeMoved) {
  disk.SetFull("D:", true);
  trace.Add("sent", "1");
  EXPECT_NE(Errors().find("61 - Disk full"), std::string::npos) << Errors();
  disk.SetFull("D:", false);
  disk.Put("D:\\t\\trace.txt", std::string(TraceFile::kMostBytes, 'x'));
  disk.Hold("D:\\t\\trace.txt", FileHold::kReading);
  clock.Advance(2min);
  trace.Add("sent", "2");
  EXPECT_NE(Errors().find("09:02:00 - Trace - 70 - Permission denied"), std::string::npos) << Errors();
}

TEST(TraceFile, NumbersItsOlderCopiesBeforeTheExtension) {
  EXPECT_EQ(TraceFile::PathOf("C:\\a.b\\trace.txt", 0), "C:\\a.b\\trace.txt");
  EXPECT_EQ(TraceFile::PathOf("C:\\a.b\\trace.txt", 2), "C:\\a.b\\trace.2.txt");
  EXPECT_EQ(TraceFile::PathOf("C:\\a.b\\trace", 2), "C:\\a.b\\trace.2");
  EXPECT_TRUE(TraceFile::IsOne("C:\\trace.4.txt", "C:\\trace.txt"));
  EXPECT_FALSE(TraceFile::IsOne("C:\\trace.5.txt", "C:\\trace.txt"));
}

}  // namespace
}  // namespace orvenza::test
