#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// A text in the system's code page, which the system's older functions take.
struct CodePageText {
  std::string bytes;  ///< With "?" for each character that the code page lacks.
  bool whole = true;  ///< It lacks none.
};

CodePageText ToCodePage(std::wstring_view text);

/// A file's path in the code page; where that lacks a character, with the file's folder in its short (8.3)
/// spelling. Throws SystemError 52 where it has none, where the file's own name lacks a character too, and
/// for an empty path and one with a NUL.
std::string CodePagePath(const std::string& path);

}  // namespace orvenza
