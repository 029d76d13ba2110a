#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace orvenza {

/// The only bitmap format that the register stores as a logo: 448 pixels wide, one bit per pixel.
inline constexpr std::uint32_t kLogoWidth = 448;
inline constexpr std::uint32_t kLogoMostRows = 254;
/// Bytes per row of pixels. Rows are stored without gaps, bottom row first.
inline constexpr std::uint32_t kLogoRowBytes = kLogoWidth / 8;
/// File offset of the first row: two headers and a palette of two entries.
inline constexpr std::uint32_t kLogoDataOffset = 62;

/// A header field of up to four bytes, least significant first, as the logo check reads it: every byte, from
/// the most significant one, is written in hexadecimal without a leading zero, and the joined digits are read
/// as a hexadecimal number. This is deliberate: bytes below 16 give a single digit, so the result is right
/// for the required values but not for all others (256 reads as 16).
std::uint32_t LogoHeaderValue(std::string_view bytes);

/// Number of rows of the logo in `path`, 0 to 254; empty when the file is missing, unreadable or in another
/// format. Only the headers are read: the rows may still be incomplete. Never fails.
[[nodiscard]] std::optional<std::uint32_t> LogoRows(const FileReader& files, const std::string& path);

/// Whether `path` is a bitmap that the register can store as a logo, even one without rows. Never fails.
[[nodiscard]] bool IsValidLogoBitmap(const FileReader& files, const std::string& path);

}  // namespace orvenza
