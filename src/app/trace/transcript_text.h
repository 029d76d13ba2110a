#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// `bytes` as one line of UTF-8: malformed bytes are read as Windows-1252, and a control character becomes
/// its number in angle brackets, "<7F>".
std::string Printable(std::string_view bytes);

/// `path` in the transcript's form: relative to the program folder, if inside it. `folder` without a trailing
/// "\". Letter case (a to z) and the kind of separator do not matter for that.
std::string ShownPath(std::string_view path, std::string_view folder);

}  // namespace orvenza
