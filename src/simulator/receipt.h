#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvenza {

/// All that a receipt in progress consists of. Amounts are cents.
struct ReceiptContent {
  std::int64_t total = 0;
  std::int64_t lastItem = 0;
  std::int64_t paid = 0;
  bool itemOpen = false;
  bool paying = false;
  std::size_t entries = 0;
  std::vector<std::string> lines{};

  bool operator==(const ReceiptContent&) const = default;
};

/// The receipt in progress: its sums, exact to the cent, and its printed lines.
///
/// Operations that can be refused return the register's two-digit error code and then change nothing; on
/// success they return an empty text. Amounts are cents and not negative.
class Receipt {
 public:
  /// Largest amount of a line, a payment and a receipt.
  static constexpr std::int64_t kLargestAmount = 99'999'999;

  Receipt() = default;
  /// Goes on with a receipt.
  explicit Receipt(ReceiptContent state) : state_(std::move(state)) {}

  const ReceiptContent& State() const { return state_; }
  bool operator==(const Receipt&) const = default;

  std::int64_t Total() const { return state_.total; }
  /// Price of the last item, including its discounts.
  std::int64_t LastItem() const { return state_.lastItem; }
  std::int64_t Due() const { return state_.total > state_.paid ? state_.total - state_.paid : 0; }
  std::int64_t Change() const { return state_.paid > state_.total ? state_.paid - state_.total : 0; }
  bool Paying() const { return state_.paying; }  ///< A payment was made, so nothing more can be sold.
  bool Paid() const { return state_.paying && state_.paid >= state_.total; }

  std::string_view Sell(std::int64_t amount);
  std::string_view TakeBack(std::int64_t amount);

  /// Adds `change`, negative for a discount, to the last item.
  std::string_view ChangeItem(std::int64_t change);
  /// Adds `change`, negative for a discount, to the total.
  std::string_view ChangeTotal(std::int64_t change);

  /// Ends the last item: no discount can be given on it any more.
  void EndItem() { state_.itemOpen = false; }
  bool ItemOpen() const { return state_.itemOpen && !state_.paying; }

  std::string_view Pay(std::int64_t amount);

  void AddLine(std::string line) { state_.lines.push_back(std::move(line)); }
  const std::vector<std::string>& Lines() const { return state_.lines; }

  /// Number of sales, texts, discounts etc. so far, which the register's receipt capacity limits.
  std::size_t Entries() const { return state_.entries; }
  void CountEntry() { ++state_.entries; }

 private:
  std::string_view SetTotal(std::int64_t total);

  ReceiptContent state_;
};

/// `price` in cents times `quantity` in thousandths; half a cent is rounded up.
std::int64_t PriceOf(std::int64_t price, std::int64_t quantity);

/// `rate` hundredths of a percent of `amount`; half a cent is rounded up.
std::int64_t PercentOf(std::int64_t amount, std::int64_t rate);

}  // namespace orvenza
