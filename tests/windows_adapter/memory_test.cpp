// Texts passed to and from the control are freed.

#include "support/windows_holdings.h"
#include "windows_adapter/standin_bench.h"

namespace orvenza::test {
namespace {

/// Texts of 2 kB: a leak of one text per round would total 20 MB.
constexpr int kRounds = 10000;
constexpr std::size_t kLength = 1000;

SIZE_T CommittedBytes() { return HoldingsOf(GetCurrentProcess()).memory; }

using AdapterMemory = StandInBench;

TEST_F(AdapterMemory, DoesNotGrowWithTheCommands) {
  const std::string text(kLength, 'x');
  adapter->SetMessage(text);
  const SIZE_T before = CommittedBytes();
  for (int i = 0; i < kRounds; ++i) adapter->SetMessage(text);
  EXPECT_LE(CommittedBytes(), before + kMemorySlack);
}

TEST_F(AdapterMemory, DoesNotGrowWithTheReplies) {
  Script("on 2001 reply " + std::string(kLength, 'y'));
  Open();
  Exchange("200101");
  ASSERT_EQ(adapter->RxMessage(), std::string(kLength, 'y'));
  const SIZE_T before = CommittedBytes();
  for (int i = 0; i < kRounds; ++i) adapter->RxMessage();
  EXPECT_LE(CommittedBytes(), before + kMemorySlack);
}

}  // namespace
}  // namespace orvenza::test
