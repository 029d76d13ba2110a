#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvenza {

/// Line break of the connector's dialogs and files.
inline constexpr std::string_view kLineBreak = "\r\n";

/// `text` without its leading and trailing blanks (the character 32 only).
[[nodiscard]] std::string_view Trim(std::string_view text);

/// `text` with the letters a to z as capitals; other characters stay.
[[nodiscard]] std::string ToUpperAscii(std::string_view text);

/// The `count` characters (bytes) of `text` from the 1-based `start`; fewer, or none, where the text ends
/// sooner.
[[nodiscard]] std::string_view Middle(std::string_view text, std::size_t start, std::size_t count);

/// The last `count` characters (bytes) of `text`, all of it when it is shorter.
[[nodiscard]] std::string_view Right(std::string_view text, std::size_t count);

/// Whether `text` contains only digits or is empty.
bool OnlyDigits(std::string_view text);

/// `digits` without the zeros that they begin with; "" for zeros only.
[[nodiscard]] std::string_view WithoutLeadingZeros(std::string_view digits);

/// The number at the start of `text` (sign, digits, decimal point), ignoring blanks anywhere; 0 when there is
/// none.
double LeadingNumber(std::string_view text);

/// The same without its fraction, clamped to 32 bits.
int LeadingInteger(std::string_view text);

/// The first `count` characters of UTF-8 `text`.
[[nodiscard]] std::string FirstCharacters(std::string_view text, std::size_t count);

/// Number of characters of UTF-8 `text`.
std::size_t CountCharacters(std::string_view text);

/// The UTF-8 spelling of bytes in Windows-1252; its five unused bytes become the control characters of the
/// same number.
[[nodiscard]] std::string FromWindows1252(std::string_view bytes);

/// The first character of UTF-8 `text` as a Windows-1252 byte; "?" when it has none there.
char FirstInWindows1252(std::string_view text);

/// Bytes that are valid UTF-8 as they stand, others read as Windows-1252.
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

/// A ticket line's bytes as a dialog shows them: read as Windows-1252, control characters and the character
/// 127 as blanks, and at most `limit` characters, the cut marked by "...".
[[nodiscard]] std::string ShownLine(std::string_view bytes, std::size_t limit);

/// A ticket line's bytes as the error log quotes them: the same, but with the character 127 as it stands, so
/// that the fields can be told, and at most 500 characters.
[[nodiscard]] std::string LoggedLine(std::string_view bytes);

}  // namespace orvenza
