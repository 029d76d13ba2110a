#include "simulator/receipt.h"

#include "simulator/register_replies.h"

namespace orvenza {
namespace {

constexpr std::string_view kDone;

}  // namespace

std::string_view Receipt::Sell(std::int64_t amount) {
  if (paying_) return refusal::kOutOfSequence;
  if (const auto refused = SetTotal(total_ + amount); !refused.empty()) return refused;
  lastItem_ = amount;
  itemOpen_ = true;
  return kDone;
}

std::string_view Receipt::TakeBack(std::int64_t amount) {
  if (paying_) return refusal::kOutOfSequence;
  if (const auto refused = SetTotal(total_ - amount); !refused.empty()) return refused;
  itemOpen_ = false;
  return kDone;
}

std::string_view Receipt::ChangeItem(std::int64_t change) {
  if (!ItemOpen()) return refusal::kOutOfSequence;
  if (lastItem_ + change < 0) return refusal::kTooLarge;
  if (const auto refused = SetTotal(total_ + change); !refused.empty()) return refused;
  lastItem_ += change;
  return kDone;
}

std::string_view Receipt::ChangeTotal(std::int64_t change) {
  if (paying_) return refusal::kOutOfSequence;
  if (const auto refused = SetTotal(total_ + change); !refused.empty()) return refused;
  itemOpen_ = false;
  return kDone;
}

std::string_view Receipt::Pay(std::int64_t amount) {
  if (amount > kLargestAmount) return refusal::kTooLarge;
  paid_ += amount;
  paying_ = true;
  return kDone;
}

std::string_view Receipt::SetTotal(std::int64_t total) {
  if (total < 0 || total > kLargestAmount) return refusal::kTooLarge;
  total_ = total;
  return kDone;
}

std::int64_t PriceOf(std::int64_t price, std::int64_t quantity) { return (price * quantity + 500) / 1000; }

std::int64_t PercentOf(std::int64_t amount, std::int64_t rate) { return (amount * rate + 5000) / 10000; }

}  // namespace orvenza
