// The finished program in real time; a preloaded library attacks one of its file calls.
//   ORVENZA_TEST_BLOWS=N     number of attacks, drawn with a fixed seed (a few if unset)
//   ORVENZA_TEST_BLOWS=all   every call is killed, and fails with each error

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "attack/process_shop.h"

namespace orvenza::test {
namespace {

constexpr std::size_t kFewBlows = 12;
/// Processes at a time; each spends most of its time waiting.
constexpr unsigned kAtOnce = 6;

std::vector<ProcessAttack> AllAttacks(const ProcessShop& calm) {
  std::vector<ProcessAttack> attacks;
  for (const int start : {1, 2}) {
    for (std::size_t call = 1; call <= calm.CallsOf(start); ++call) {
      // Kills are as frequent as the four errors together.
      for (const int error : {0, ENOSPC, 0, EIO, 0, EACCES, 0, EMFILE})
        attacks.push_back({start, call, error});
    }
  }
  return attacks;
}

std::vector<ProcessAttack> Drawn(std::vector<ProcessAttack> attacks) {
  const char* const asked = std::getenv("ORVENZA_TEST_BLOWS");
  if (asked != nullptr && std::string(asked) == "all") {
    const auto same = [](const ProcessAttack& a, const ProcessAttack& b) {
      return a.start == b.start && a.call == b.call && a.error == b.error;
    };
    std::stable_sort(attacks.begin(), attacks.end(), [](const auto& a, const auto& b) {
      return std::tie(a.start, a.call, a.error) < std::tie(b.start, b.call, b.error);
    });
    attacks.erase(std::unique(attacks.begin(), attacks.end(), same), attacks.end());
    return attacks;
  }
  const std::size_t blows = asked == nullptr ? kFewBlows : std::strtoul(asked, nullptr, 10);
  std::mt19937 draw(20261122);
  // Not std::shuffle, whose order depends on the library.
  for (std::size_t i = 0; i < std::min(blows, attacks.size()); ++i) {
    std::swap(attacks[i], attacks[i + draw() % (attacks.size() - i)]);
  }
  attacks.resize(std::min(blows, attacks.size()));
  return attacks;
}

TEST(ProcessAttack, LeavesTheShopWhole) {
  ProcessShop calm({});
  calm.LiveThreeDays();
  ASSERT_EQ(calm.Violations(), std::vector<std::string>());
  ASSERT_GT(calm.CallsOf(1), 100U);
  ASSERT_GT(calm.CallsOf(2), 100U);
  const std::vector<ProcessAttack> attacks = Drawn(AllAttacks(calm));
  std::atomic<std::size_t> next = 0;
  std::atomic<std::size_t> struck = 0;
  std::mutex reporting;
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < kAtOnce; ++i) {
    threads.emplace_back([&] {
      for (std::size_t at = 0; (at = next++) < attacks.size();) {
        const ProcessAttack& attack = attacks[at];
        ProcessShop shop(attack);
        shop.LiveThreeDays();
        if (!shop.Struck().empty()) ++struck;
        const std::lock_guard lock(reporting);
        for (const std::string& violation : shop.Violations()) {
          ADD_FAILURE() << "start " << attack.start << ", call " << shop.Struck() << ", error "
                        << attack.error << " (0: killed): " << violation;
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::printf("%zu and %zu calls, %zu blows\n", calm.CallsOf(1), calm.CallsOf(2), struck.load());
  // The last calls of a start may not happen if its ticks fall differently.
  EXPECT_GE(struck + attacks.size() / 10 + 1, attacks.size());
}

}  // namespace
}  // namespace orvenza::test
