#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvenza {

/// The bytes of a file as a ticket: each field closed by `separator`, Windows-1252, lines ended by CR LF.
///
/// `written` is the separator in the file. If it is empty, it is recognised: it is the character behind the
/// record type, which begins every line, and may be the character 127, ";" or `separator`. Bytes that are not
/// UTF-8 are taken for Windows-1252. Throws std::runtime_error with the reason if the lines do not agree on a
/// separator, if a text contains `separator`, or if a character does not exist in Windows-1252.
[[nodiscard]] std::string TicketText(std::string_view file, char separator, std::optional<char> written);

}  // namespace orvenza
