#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// UTF-16, two bytes a unit, as UTF-8 and back. What is not well-formed becomes the replacement character.
std::string Utf8FromUtf16(std::string_view bytes, bool bigEndian);
std::string Utf16FromUtf8(std::string_view text, bool bigEndian);

}  // namespace orvenza
