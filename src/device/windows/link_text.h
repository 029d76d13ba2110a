#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// Commands and replies are bytes in Windows-1252; the control takes and gives UTF-16. Neither way loses a
/// byte, those five included that stand for no letter. What Windows-1252 cannot spell becomes "?".
std::wstring WideOfLink(std::string_view bytes);
std::string LinkBytesOf(std::wstring_view text);

}  // namespace orvenza
