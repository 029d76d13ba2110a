#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// `bytes` as one line of UTF-8: bytes that are not well-formed are read as Windows-1252, and a control
/// character stands as its number in angle brackets, "<7F>".
std::string Printable(std::string_view bytes);

/// `path` as a transcript shows it: within the program folder of rehearsals without that.
std::string ShownPath(std::string_view path);

}  // namespace orvenza
