#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// Converts between UTF-16 bytes and UTF-8. Malformed input becomes the replacement character.
std::string Utf8FromUtf16(std::string_view bytes, bool bigEndian);
std::string Utf16FromUtf8(std::string_view text, bool bigEndian);

}  // namespace orvenza
