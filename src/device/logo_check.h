#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace orvenza {

/// The one shape of bitmap that the register stores as its logo: 448 pixels wide, one bit a pixel.
inline constexpr std::uint32_t kLogoWidth = 448;
inline constexpr std::uint32_t kLogoMostRows = 254;
/// Bytes of one row of pixels; rows lie in the file without gaps, the bottom row first.
inline constexpr std::uint32_t kLogoRowBytes = kLogoWidth / 8;
/// File offset of the first row: two headers and a palette of two entries.
inline constexpr std::uint32_t kLogoDataOffset = 62;

/// A header field of up to four bytes, in file order (least significant first), as the logo check reads it:
/// every byte, most significant first, becomes its hexadecimal text without a leading zero, and the joined
/// text is read as a hexadecimal number. Deliberate: bytes below 16 give a single digit, so this is the true
/// number for the required values but not for every other one (256 reads as 16).
std::uint32_t LogoHeaderValue(std::string_view bytes);

/// Number of rows of the logo in `path`, 0 to 254; none when the file is missing, cannot be read or is not of
/// the register's shape. Only the headers are looked at: the rows themselves may still be cut short. Never
/// fails.
std::optional<std::uint32_t> LogoRows(const FileReader& files, const std::string& path);

/// Whether `path` is a bitmap that the register can store as its logo, be it one without rows. Never fails.
bool IsValidLogoBitmap(const FileReader& files, const std::string& path);

}  // namespace orvenza
