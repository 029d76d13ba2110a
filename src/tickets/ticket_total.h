#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvenza {

/// A ticket as the operator recognises it: whether a receipt or a report comes first behind `skipped` lines,
/// the time of day of its `stamp` ("yyyymmddhhmmss") and, if the items alone say it, the receipt's total. The
/// receipt ends with line `last` at the latest, where one that is too long was divided. `separator` divides
/// the fields.
[[nodiscard]] std::string DescribeTicket(std::string_view stamp, std::string_view text, std::size_t skipped,
                                         std::size_t last, char separator);

}  // namespace orvenza
