#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orvenza {

/// Line break of the connector's dialogs and files.
inline constexpr std::string_view kLineBreak = "\r\n";

/// `text` without leading and trailing blanks (character 32 only).
[[nodiscard]] std::string_view Trim(std::string_view text);

/// `text` with a to z as capitals; other characters are unchanged.
[[nodiscard]] std::string ToUpperAscii(std::string_view text);

/// `count` characters (bytes) of `text` from the 1-based `start`; fewer, or none, if the text is shorter.
[[nodiscard]] std::string_view Middle(std::string_view text, std::size_t start, std::size_t count);

/// The last `count` characters (bytes) of `text`, or all of a shorter one.
[[nodiscard]] std::string_view Right(std::string_view text, std::size_t count);

/// Whether `text` contains only digits or is empty.
bool OnlyDigits(std::string_view text);

/// `digits` without leading zeros; "" for zeros only.
[[nodiscard]] std::string_view WithoutLeadingZeros(std::string_view digits);

/// The number at the start of `text` (sign, digits, decimal point), ignoring blanks anywhere; 0 when there is
/// none.
double LeadingNumber(std::string_view text);

/// The same without its fraction, clamped to 32 bits.
int LeadingInteger(std::string_view text);

/// `text` with `prefix` before each of its lines.
[[nodiscard]] std::string WithPrefix(std::string_view prefix, std::string_view text);

/// The first `count` characters of UTF-8 `text`.
[[nodiscard]] std::string FirstCharacters(std::string_view text, std::size_t count);

/// Number of characters of UTF-8 `text`.
std::size_t CountCharacters(std::string_view text);

/// Converts Windows-1252 to UTF-8; its five unused bytes become the control characters of the same number.
[[nodiscard]] std::string FromWindows1252(std::string_view bytes);

/// The first character of UTF-8 `text` as a Windows-1252 byte; "?" when it has none there.
char FirstInWindows1252(std::string_view text);

/// Converts UTF-8 to Windows-1252; empty if a character does not exist there.
[[nodiscard]] std::optional<std::string> ToWindows1252(std::string_view utf8);

/// Valid UTF-8 is returned unchanged, other bytes are read as Windows-1252.
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

/// A ticket line's bytes for a dialog: read as Windows-1252, control characters and the character 127 as
/// blanks, at most `limit` characters, with "..." if cut.
[[nodiscard]] std::string ShownLine(std::string_view bytes, std::size_t limit);

/// A ticket line's bytes for the error log: the same, but with the character 127 unchanged, so that the
/// fields can be told apart, and at most 500 characters.
[[nodiscard]] std::string LoggedLine(std::string_view bytes);

}  // namespace orvenza
