#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvenza {

/// A ticket as the operator recognises it: the time of day of its `stamp` ("yyyymmddhhmmss") and, if the
/// items alone say it, the total of the first receipt behind `skipped` lines. It ends with line `last` at the
/// latest, where a receipt that is too long was divided. `separator` divides the fields.
[[nodiscard]] std::string DescribeTicket(std::string_view stamp, std::string_view text, std::size_t skipped,
                                         std::size_t last, char separator);

}  // namespace orvenza
