#include "app/trace/transcript_text.h"

#include <algorithm>
#include <cstdio>

#include "core/text.h"

namespace orvenza {
namespace {

/// The form in which characters of paths are compared.
char Plain(char c) {
  if (c == '/') return '\\';
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string Printable(std::string_view bytes) {
  std::string line;
  for (const char c : ToUtf8(bytes)) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= 32 && code != 127) {
      line += c;
      continue;
    }
    char number[8];
    std::snprintf(number, sizeof number, "<%02X>", unsigned{code});
    line += number;
  }
  return line;
}

std::string ShownPath(std::string_view path, std::string_view folder) {
  const auto isSame = [](char a, char b) { return Plain(a) == Plain(b); };
  const bool inside = path.size() > folder.size() && Plain(path[folder.size()]) == '\\' &&
                      std::equal(folder.begin(), folder.end(), path.begin(), isSame);
  return Printable(inside ? path.substr(folder.size() + 1) : path);
}

}  // namespace orvenza
