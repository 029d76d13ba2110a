#include "core/repeated_failures.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/system_error.h"
#include "simulator/virtual_clock.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

constexpr auto kTick = 500ms;

class RepeatedFailuresTest : public ::testing::Test {
 protected:
  RepeatedFailuresTest() { paths.ErrPath = "C:\\shop\\Err.txt"; }

  /// Ticks for this time, each with a failure for every path.
  void FailFor(std::chrono::nanoseconds time, const std::vector<std::string>& failing) {
    for (const auto end = clock.Uptime() + time; clock.Uptime() < end; clock.Advance(kTick)) {
      for (const std::string& path : failing) {
        failures.Attempt("Timer1 - ", [&] { throw SystemError(error_number::kPathNotFound, path); });
      }
      failures.EndRound();
    }
  }

  /// Number of occurrences of a text in the log.
  int CountOf(const std::string& text, const std::string& log = "Err.txt") {
    const std::string& lines = files.content["C:\\shop\\" + log];
    int count = 0;
    for (auto at = lines.find(text); at != std::string::npos; at = lines.find(text, at + 1)) ++count;
    return count;
  }

  VirtualClock clock;
  MemoryFiles files;
  LogPaths paths;
  Logs logs{files, clock, paths, "C:\\shop"};
  RepeatedFailures failures{logs};
};

TEST_F(RepeatedFailuresTest, AreWrittenTenTimesAndThenOnceAMinute) {
  FailFor(5s, {"Z:\\in\\"});
  EXPECT_EQ(CountOf(" - Timer1 - 76 - Path not found ( Z:\\in\\ )\r\n"), 10);
  FailFor(59s, {"Z:\\in\\"});
  EXPECT_EQ(CountOf("\n"), 10);
  FailFor(61s, {"Z:\\in\\"});
  EXPECT_EQ(CountOf("\n"), 12);
  EXPECT_EQ(CountOf(" - Errore ripetuto ( 130 volte ) : Timer1 - 76 - Path not found ( Z:\\in\\ )\r\n"), 1);
  EXPECT_EQ(CountOf(" - Errore ripetuto ( 250 volte ) : "), 1);
}

TEST_F(RepeatedFailuresTest, TellWhenTheyHaveEnded) {
  FailFor(10s, {"Z:\\in\\", "Z:\\in\\inproces\\"});
  FailFor(5s, {"Z:\\in\\"});
  EXPECT_EQ(CountOf("Errore cessato ( 20 volte ) : Timer1 - 76 - Path not found ( Z:\\in\\inproces\\ )"), 1);
  EXPECT_EQ(CountOf("Errore cessato"), 1);
  FailFor(4500ms, {});
  EXPECT_EQ(CountOf("Errore cessato"), 1);
  FailFor(500ms, {});
  EXPECT_EQ(CountOf("Errore cessato ( 30 volte ) : Timer1 - 76 - Path not found ( Z:\\in\\ )"), 1);
}

TEST_F(RepeatedFailuresTest, AreWrittenAnewOnceTheyHaveEnded) {
  for (int outage = 1; outage <= 3; ++outage) {
    FailFor(10s, {"Z:\\in\\"});
    FailFor(5s, {});
    EXPECT_EQ(CountOf(" - Timer1 - "), 10 * outage);
  }
}

TEST_F(RepeatedFailuresTest, ThatComeInEveryOtherRoundAreTheSame) {
  for (int i = 0; i < 20; ++i) {
    FailFor(kTick, {"Z:\\in\\"});
    FailFor(kTick, {});
  }
  EXPECT_EQ(CountOf("\n"), 10);
}

TEST_F(RepeatedFailuresTest, ThatCameAFewTimesEndWithoutAWord) {
  FailFor(5s, {"Z:\\in\\"});
  FailFor(10s, {});
  EXPECT_EQ(CountOf("\n"), 10);
}

TEST_F(RepeatedFailuresTest, OfADayLeaveTheMorningInTheLogs) {
  logs.WrErr("Risposta Operatore : Scontrino stampato, continuare");
  FailFor(24h, {"D:\\Cassa1\\scontrini\\", "D:\\Cassa1\\scontrini\\inproces\\"});
  const int kept = CountOf("Risposta Operatore") + CountOf("Risposta Operatore", "Err.Bak");
  EXPECT_EQ(kept, 1);
  EXPECT_EQ(CountOf("\n") + CountOf("\n", "Err.Bak"), 1 + 2 * (10 + 24 * 60 - 1)) << "nothing is lost";
}

}  // namespace
}  // namespace orvenza::test
