#include "simulator/receipt.h"

#include "simulator/register_replies.h"

namespace orvenza {
namespace {

constexpr std::string_view kDone;

}  // namespace

std::string_view Receipt::Sell(std::int64_t amount) {
  if (state_.paying) return refusal::kOutOfSequence;
  if (const auto refused = SetTotal(state_.total + amount); !refused.empty()) return refused;
  state_.lastItem = amount;
  state_.itemOpen = true;
  return kDone;
}

std::string_view Receipt::TakeBack(std::int64_t amount) {
  if (state_.paying) return refusal::kOutOfSequence;
  if (const auto refused = SetTotal(state_.total - amount); !refused.empty()) return refused;
  state_.itemOpen = false;
  return kDone;
}

std::string_view Receipt::ChangeItem(std::int64_t change) {
  if (!ItemOpen()) return refusal::kOutOfSequence;
  if (state_.lastItem + change < 0) return refusal::kTooLarge;
  if (const auto refused = SetTotal(state_.total + change); !refused.empty()) return refused;
  state_.lastItem += change;
  return kDone;
}

std::string_view Receipt::ChangeTotal(std::int64_t change) {
  if (state_.paying) return refusal::kOutOfSequence;
  if (const auto refused = SetTotal(state_.total + change); !refused.empty()) return refused;
  state_.itemOpen = false;
  return kDone;
}

std::string_view Receipt::Pay(std::int64_t amount) {
  if (amount > kLargestAmount) return refusal::kTooLarge;
  state_.paid += amount;
  state_.paying = true;
  return kDone;
}

std::string_view Receipt::SetTotal(std::int64_t total) {
  if (total < 0 || total > kLargestAmount) return refusal::kTooLarge;
  state_.total = total;
  return kDone;
}

std::int64_t PriceOf(std::int64_t price, std::int64_t quantity) { return (price * quantity + 500) / 1000; }

std::int64_t PercentOf(std::int64_t amount, std::int64_t rate) { return (amount * rate + 5000) / 10000; }

}  // namespace orvenza
