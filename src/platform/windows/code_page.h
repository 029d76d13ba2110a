#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// A text in the system's code page, for the system's older functions.
struct CodePageText {
  std::string bytes;  ///< With "?" for each character missing from the code page.
  bool whole = true;  ///< False if a character was replaced.
};

CodePageText ToCodePage(std::wstring_view text);

/// A file's path in the code page. If the folder's path contains other characters, its short (8.3) form is
/// used. Throws SystemError 52 when there is no short form, when the file's own name contains such
/// characters, and for an empty path or one with a NUL.
std::string CodePagePath(const std::string& path);

}  // namespace orvenza
