#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvenza {

/// "1.234,56" for 123456 cents, "-0,05" for -5.
std::string FormatCents(std::int64_t cents);

/// "2" for 2000 thousandths, "0,125" for 125.
std::string FormatQuantity(std::int64_t thousandths);

/// A paper line with `left` and `right` at its edges and at least one blank between them; `left` is shortened
/// if the line is too short for both.
std::string Spread(std::string_view left, std::string_view right);

/// A paper line with `text` centred.
std::string Centred(std::string_view text);

/// The line that marks where the paper is cut.
std::string Divider();

}  // namespace orvenza
