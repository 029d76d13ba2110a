#include "lab/table/play_pairs.h"

#include <string>
#include <utility>

namespace orvenza {
namespace {

constexpr std::size_t kShown = 10;
/// Keeps the random numbers of one pair apart from those of the next.
constexpr std::uint64_t kStride = 0x2545f4914f6cdd1d;

/// An honest operator must see whether the receipt is there: it is one slip.
PairOperator OperatorFor(const PairTicket& ticket, Dice& dice) {
  return ticket.expected.size() == 1 && dice.Chance(50) ? PairOperator::kHonest : PairOperator::kAny;
}

}  // namespace

PairsPlayed PlayPairs(std::size_t count, std::uint64_t seed,
                      const std::function<void(std::size_t, std::size_t)>& progress) {
  const std::vector<PairTicket> tickets = PairTickets();
  PairsPlayed played;
  for (std::size_t i = 0; i < count; ++i) {
    Dice dice(seed + kStride * i);
    const PairTicket& ticket = dice.OneOf(tickets);
    const std::string text = PairScenario(ticket, dice);
    PairEnd end = PlayPair(ticket, text, OperatorFor(ticket, dice), dice);
    if (progress) progress(i + 1, count);
    if (!end.judged) {
      ++played.notJudged;
      continue;
    }
    ++played.ends[end.verdict];
    if (end.allowed) continue;
    if (++played.forbidden <= kShown) played.violations.push_back(std::move(end));
  }
  return played;
}

}  // namespace orvenza
