#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvenza {

/// The receipt in progress: its sums, exact to the cent, and its printed lines.
///
/// Operations that can be refused return the register's two-digit error code and then change nothing; on
/// success they return an empty text. Amounts are cents and not negative.
class Receipt {
 public:
  /// Largest amount of a line, a payment and a receipt.
  static constexpr std::int64_t kLargestAmount = 99'999'999;

  std::int64_t Total() const { return total_; }
  std::int64_t LastItem() const { return lastItem_; }  ///< Price of the last item, including its discounts.
  std::int64_t Due() const { return total_ > paid_ ? total_ - paid_ : 0; }
  std::int64_t Change() const { return paid_ > total_ ? paid_ - total_ : 0; }
  bool Paying() const { return paying_; }  ///< A payment was made, so nothing more can be sold.
  bool Paid() const { return paying_ && paid_ >= total_; }

  std::string_view Sell(std::int64_t amount);
  std::string_view TakeBack(std::int64_t amount);

  /// Adds `change`, negative for a discount, to the last item.
  std::string_view ChangeItem(std::int64_t change);
  /// Adds `change`, negative for a discount, to the total.
  std::string_view ChangeTotal(std::int64_t change);

  /// Ends the last item: no discount can be given on it any more.
  void EndItem() { itemOpen_ = false; }
  bool ItemOpen() const { return itemOpen_ && !paying_; }

  std::string_view Pay(std::int64_t amount);

  void AddLine(std::string line) { lines_.push_back(std::move(line)); }
  const std::vector<std::string>& Lines() const { return lines_; }

  /// Number of sales, texts, discounts etc. so far, which the register's receipt capacity limits.
  std::size_t Entries() const { return entries_; }
  void CountEntry() { ++entries_; }

 private:
  std::string_view SetTotal(std::int64_t total);

  std::int64_t total_ = 0;
  std::int64_t lastItem_ = 0;
  std::int64_t paid_ = 0;
  bool itemOpen_ = false;
  bool paying_ = false;
  std::size_t entries_ = 0;
  std::vector<std::string> lines_;
};

/// `price` in cents times `quantity` in thousandths; half a cent is rounded up.
std::int64_t PriceOf(std::int64_t price, std::int64_t quantity);

/// `rate` hundredths of a percent of `amount`; half a cent is rounded up.
std::int64_t PercentOf(std::int64_t amount, std::int64_t rate);

}  // namespace orvenza
