#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// UTF-8 as the system's UTF-16 and back. What is not well-formed becomes the replacement character.
std::wstring ToWide(std::string_view text);
std::string ToUtf8(std::wstring_view text);

/// False for UTF-16 that would not come back from UTF-8 as it was. The system allows it in file names.
bool IsWellFormed(std::wstring_view text);

}  // namespace orvenza
