#pragma once

#include <compare>
#include <string>
#include <vector>

namespace orvenza {

/// A slip that the register cut off, as far as it can be compared: without the shop's heading, and without
/// what differs from day to day, the date and the numbers.
using Slip = std::vector<std::string>;

/// The slips on `paper`, in their order. What was printed after the last cut is one too.
std::vector<Slip> SlipsOn(const std::vector<std::string>& paper);

/// What a customer holds who has waited for a ticket.
struct CustomerPaper {
  int whole = 0;      ///< How often everything that the ticket prints.
  int other = 0;      ///< Slips that are something else, such as a part of it.
  int mixed = 0;      ///< Slips with lines of an earlier ticket, too.
  int earlier = 0;    ///< Slips of an earlier ticket.
  int voided = 0;     ///< Slips that the register closed as voided.
  bool open = false;  ///< A slip that the register has not closed.

  auto operator<=>(const CustomerPaper&) const = default;
};

/// Compares what is on the paper with what `expected` says a ticket prints. A slip that the ticket itself
/// voids is not the customer's and does not count as expected. `foreign` is a text that only an earlier
/// ticket prints.
CustomerPaper Compare(const std::vector<std::string>& paper, const std::vector<Slip>& expected,
                      const std::string& foreign);

}  // namespace orvenza
