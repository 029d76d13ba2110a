#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// Converts between UTF-8 and the system's UTF-16. Malformed input becomes the replacement character.
std::wstring ToWide(std::string_view text);
std::string ToUtf8(std::wstring_view text);

/// False if a conversion to UTF-8 and back would change the text. The system allows malformed file names.
bool IsWellFormed(std::wstring_view text);

}  // namespace orvenza
