#include "app/trace/transcript.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/virtual_clock.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

class TranscriptTest : public ::testing::Test {
 protected:
  VirtualClock clock;
  Lines lines;
  Transcript transcript{clock, [this](const std::string& line) { lines.push_back(line); }};
};

TEST_F(TranscriptTest, WritesAnEventALineWithItsMilliseconds) {
  transcript.Add("start");
  clock.Advance(1234567us);
  transcript.Add("sent", "321700");
  transcript.Close();
  EXPECT_EQ(lines, (Lines{"        0  start", "     1234  sent      321700"}));
}

TEST_F(TranscriptTest, CountsWhatRepeatsItselfAtOnce) {
  transcript.Add("written", "a.ini");
  transcript.Add("written", "a.ini");
  clock.Advance(1ms);
  transcript.Add("written", "a.ini");
  transcript.Add("written", "b.ini");
  transcript.Close();
  EXPECT_EQ(lines, (Lines{"        0  written   a.ini (2 times)", "        1  written   a.ini",
                          "        1  written   b.ini"}));
}

TEST_F(TranscriptTest, GathersIdleTicksAndTellsTheActingOneApart) {
  for (int i = 0; i < 3; ++i) {
    clock.Advance(500ms);
    transcript.Tick();
  }
  transcript.Add("taken", "1.txt");
  clock.Advance(500ms);
  transcript.Tick();
  clock.Advance(1ms);
  transcript.Add("end");
  transcript.Close();
  EXPECT_EQ(lines, (Lines{"      500  tick      2 idle ones", "     1500  tick", "     1500  taken     1.txt",
                          "     2000  tick      idle", "     2001  end"}));
}

TEST_F(TranscriptTest, WritesEachLineAsSoonAsTheNextBegins) {
  transcript.Add("sent", "1");
  EXPECT_EQ(lines, Lines{});
  transcript.Add("reply", "2");
  EXPECT_EQ(lines, Lines{"        0  sent      1"});
}

}  // namespace
}  // namespace orvenza::test
