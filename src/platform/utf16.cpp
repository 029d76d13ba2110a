#include "platform/utf16.h"

#include <cstddef>

namespace orvenza {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyondAUnit = 0x10000;
constexpr char32_t kFirstHigh = 0xD800;
constexpr char32_t kFirstLow = 0xDC00;
constexpr char32_t kEndOfLow = 0xE000;

bool IsHigh(char32_t unit) { return unit >= kFirstHigh && unit < kFirstLow; }
bool IsLow(char32_t unit) { return unit >= kFirstLow && unit < kEndOfLow; }

char32_t Byte(char c) { return static_cast<unsigned char>(c); }

char32_t UnitAt(std::string_view bytes, std::size_t at, bool bigEndian) {
  const char32_t first = Byte(bytes[at]);
  const char32_t second = Byte(bytes[at + 1]);
  return bigEndian ? first << 8 | second : second << 8 | first;
}

void AddUtf8(std::string& text, char32_t code) {
  const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) return add(code);
  if (code < 0x800) {
    add(0xC0 | code >> 6);
  } else if (code < kFirstBeyondAUnit) {
    add(0xE0 | code >> 12);
    add(0x80 | (code >> 6 & 0x3F));
  } else {
    add(0xF0 | code >> 18);
    add(0x80 | (code >> 12 & 0x3F));
    add(0x80 | (code >> 6 & 0x3F));
  }
  add(0x80 | (code & 0x3F));
}

/// Removes and returns the first character of `text`, or a single byte if no character begins there.
char32_t TakeUtf8(std::string_view& text) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, kFirstBeyondAUnit};
  const char32_t lead = Byte(text.front());
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC0 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF8 ? 4
                                           : 0;
  char32_t code = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  bool whole = length > 0 && length <= text.size();
  for (std::size_t i = 1; whole && i < length; ++i) {
    whole = (Byte(text[i]) & 0xC0) == 0x80;
    code = code << 6 | (Byte(text[i]) & 0x3F);
  }
  whole = whole && code >= kLeast[length] && code <= 0x10FFFF && !IsHigh(code) && !IsLow(code);
  text.remove_prefix(whole ? length : 1);
  return whole ? code : kReplacement;
}

}  // namespace

std::string Utf8FromUtf16(std::string_view bytes, bool bigEndian) {
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t code = UnitAt(bytes, at, bigEndian);
    const char32_t next = at + 3 < bytes.size() ? UnitAt(bytes, at + 2, bigEndian) : 0;
    if (IsHigh(code) && IsLow(next)) {
      code = kFirstBeyondAUnit + ((code - kFirstHigh) << 10) + (next - kFirstLow);
      at += 2;
    }
    AddUtf8(text, IsHigh(code) || IsLow(code) ? kReplacement : code);
  }
  return text;
}

std::string Utf16FromUtf8(std::string_view text, bool bigEndian) {
  std::string bytes;
  const auto add = [&](char32_t unit) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  };
  while (!text.empty()) {
    const char32_t code = TakeUtf8(text);
    if (code >= kFirstBeyondAUnit) {
      add(kFirstHigh + ((code - kFirstBeyondAUnit) >> 10));
      add(kFirstLow + ((code - kFirstBeyondAUnit) & 0x3FF));
    } else {
      add(code);
    }
  }
  return bytes;
}

}  // namespace orvenza
