#include "platform/name_mask.h"

#include <cstddef>

namespace orvenza {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Index after the UTF-8 character that begins at `index`.
std::size_t NextCharacter(std::string_view text, std::size_t index) {
  do ++index;
  while (index < text.size() && (static_cast<unsigned char>(text[index]) & 0xC0) == 0x80);
  return index;
}

}  // namespace

bool MatchesMask(std::string_view name, std::string_view mask) {
  if (mask == "*.*") return true;
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t n = 0;
  std::size_t m = 0;
  std::size_t star = kNone;  // The last "*" seen, and the first character that it does not cover.
  std::size_t resume = 0;
  while (n < name.size()) {
    const char wanted = m < mask.size() ? mask[m] : '\0';
    if (wanted == '*') {
      star = m++;
      resume = n;
    } else if (wanted == '?') {
      n = NextCharacter(name, n);
      ++m;
    } else if (m < mask.size() && Lower(wanted) == Lower(name[n])) {
      ++n;
      ++m;
    } else if (star != kNone) {
      m = star + 1;
      n = ++resume;
    } else {
      return false;
    }
  }
  return mask.find_first_not_of('*', m) == kNone;
}

}  // namespace orvenza
