#pragma once

#include <compare>
#include <string>
#include <vector>

namespace orvenza {

/// The comparable part of a slip that the register has cut: without the shop's heading, the date and the
/// numbers.
using Slip = std::vector<std::string>;

/// The slips on `paper`, in order, including anything printed after the last cut.
std::vector<Slip> SlipsOn(const std::vector<std::string>& paper);

/// What the customer of a ticket receives.
struct CustomerPaper {
  int whole = 0;      ///< Number of complete copies of the ticket.
  int other = 0;      ///< Slips with other content, such as a part of it.
  int mixed = 0;      ///< Slips that also contain lines of an earlier ticket.
  int earlier = 0;    ///< Slips of an earlier ticket.
  int voided = 0;     ///< Slips that the register closed as voided.
  bool open = false;  ///< The last slip is not closed.
  /// Receipts keyed in at the register itself, and those of them that were voided.
  int keyedIn = 0;
  int keyedInVoided = 0;

  auto operator<=>(const CustomerPaper&) const = default;
};

/// Compares the paper with the slips `expected` from a ticket. A slip that the ticket itself voids is not for
/// the customer and does not count as expected. `foreign` is a text that only an earlier ticket prints.
CustomerPaper Compare(const std::vector<std::string>& paper, const std::vector<Slip>& expected,
                      const std::string& foreign);

}  // namespace orvenza
