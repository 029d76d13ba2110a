#include "lab/rehearsal/transcript_text.h"

#include <cstdio>

#include "core/text.h"
#include "lab/rehearsal/scenario.h"

namespace orvenza {

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

std::string ShownPath(std::string_view path) {
  const std::string prefix = std::string(kRehearsalFolder) + "\\";
  return Printable(path.starts_with(prefix) ? path.substr(prefix.size()) : path);
}

}  // namespace orvenza
