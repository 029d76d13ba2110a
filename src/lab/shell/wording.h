#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"

namespace orvenza {

/// "1 file", "3 files".
std::string CountOf(std::uintmax_t count, std::string_view thing);

/// "0 to 3, 5, 8, 9" for numbers in ascending order.
std::string NumberRanges(const std::vector<int>& numbers);

/// "512 bytes", "1.5 kB", "2.0 MB", "1.1 GB", with decimal prefixes.
std::string SizeText(std::uintmax_t bytes);

/// The time from `then` to `now`: "2 days", "3 hours", "5 minutes"; "less than a minute" also if `then` is in
/// the future.
std::string AgeText(const LocalTime& now, const LocalTime& then);

/// "2026-11-21 06:55".
std::string MinuteText(const LocalTime& time);

/// "2026-11-21T06:55:00".
std::string IsoText(const LocalTime& time);

/// Bytes made fit for a terminal: decoded as UTF-8 or else Windows-1252, control characters as blanks.
std::string ShownBytes(std::string_view bytes);

/// A settings text in quotes for one line of output: control characters as blanks, shortened if long.
std::string Quoted(std::string_view utf8);

}  // namespace orvenza
