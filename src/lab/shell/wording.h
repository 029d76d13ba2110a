#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace orvenza {

/// "1 file", "3 files".
std::string CountOf(std::uintmax_t count, std::string_view thing);

/// "512 bytes", "1.5 kB", "2.0 MB", "1.1 GB": of 1000 each.
std::string SizeText(std::uintmax_t bytes);

/// How long `then` is before `now`: "2 days", "3 hours", "5 minutes"; "less than a minute" also for a moment
/// that is still to come.
std::string AgeText(const LocalTime& now, const LocalTime& then);

/// "2026-11-21 06:55".
std::string MinuteText(const LocalTime& time);

/// "2026-11-21T06:55:00".
std::string IsoText(const LocalTime& time);

/// Bytes as a terminal can show them: UTF-8 or else Windows-1252, control characters as blanks.
std::string ShownBytes(std::string_view bytes);

/// A text of the settings in quotes, as a line can show it: control characters as blanks, and cut when long.
std::string Quoted(std::string_view utf8);

}  // namespace orvenza
