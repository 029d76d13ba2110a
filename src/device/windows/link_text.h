#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// Converts commands and replies, which are bytes in Windows-1252, to and from the control's UTF-16. No byte
/// is lost, including the five without a character. Characters outside Windows-1252 become "?".
std::wstring WideOfLink(std::string_view bytes);
std::string LinkBytesOf(std::wstring_view text);

}  // namespace orvenza
