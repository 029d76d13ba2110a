#include "core/text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <map>

namespace orvenza {
namespace {

/// Longest quotation of a ticket line in the error log, in characters.
constexpr std::size_t kLoggedLine = 500;

/// Code points of the Windows-1252 bytes 128 to 159.
constexpr char32_t kUpperControls[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                         0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// Length of the valid UTF-8 sequence at the start of `text`; 0 when there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xC2 && first < 0xE0 ? 2 : first >= 0xE0 && first < 0xF0 ? 3 : 4;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[i])) return 0;
  }
  const bool overlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
  const bool surrogate = first == 0xED && byte(1) > 0x9F;
  const bool tooLarge = first == 0xF4 && byte(1) > 0x8F;
  return overlong || surrogate || tooLarge ? 0 : length;
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = SequenceLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

/// At most `limit` bytes converted to UTF-8, with control characters as blanks.
std::string Quoted(std::string_view bytes, std::size_t limit) {
  std::string quoted(bytes.substr(0, limit));
  for (char& c : quoted) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  quoted = FromWindows1252(quoted);
  if (bytes.size() > limit) quoted += "...";
  return quoted;
}

/// The characters of Windows-1252 and their bytes.
std::map<std::string, char> BytesOfWindows1252() {
  std::map<std::string, char> bytes;
  for (int code = 0; code < 256; ++code) {
    const char byte = static_cast<char>(code);
    bytes.emplace(FromWindows1252({&byte, 1}), byte);
  }
  return bytes;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string ToUpperAscii(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

std::string_view Middle(std::string_view text, std::size_t start, std::size_t count) {
  return start == 0 || start > text.size() ? std::string_view{} : text.substr(start - 1, count);
}

std::string_view Right(std::string_view text, std::size_t count) {
  return text.size() <= count ? text : text.substr(text.size() - count);
}

bool OnlyDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view WithoutLeadingZeros(std::string_view digits) {
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

double LeadingNumber(std::string_view text) {
  std::string digits;
  for (const char c : text) {
    if (c == ' ') continue;
    const bool sign = digits.empty() && (c == '-' || c == '+');
    const bool point = c == '.' && digits.find('.') == std::string::npos;
    if (!sign && !point && (c < '0' || c > '9')) break;
    digits += c;
  }
  if (!digits.empty() && digits[0] == '+') digits.erase(0, 1);
  double number = 0;
  const auto result =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  if (result.ec == std::errc::result_out_of_range) {
    if (digits.find_first_of("123456789") > digits.find('.')) return 0;  // too small, not too large
    return digits[0] == '-' ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
  }
  return number;
}

int LeadingInteger(std::string_view text) {
  const double number = LeadingNumber(text);
  if (number >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  if (number <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  return static_cast<int>(number);
}

std::string WithPrefix(std::string_view prefix, std::string_view text) {
  std::string prefixed(prefix);
  for (const char c : text) {
    prefixed += c;
    if (c == '\n') prefixed += prefix;
  }
  return prefixed;
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  while (end < text.size() && (count > 0 || IsContinuation(text[end]))) {
    if (!IsContinuation(text[end])) --count;
    ++end;
  }
  return std::string(text.substr(0, end));
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) count += IsContinuation(c) ? 0U : 1U;
  return count;
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(text, byte >= 128 && byte < 160 ? kUpperControls[byte - 128] : byte);
  }
  return text;
}

char FirstInWindows1252(std::string_view text) {
  // ASCII is unchanged.
  if (!text.empty() && static_cast<unsigned char>(text[0]) < 128) return text[0];
  for (int code = 128; code < 256; ++code) {
    const char byte = static_cast<char>(code);
    if (text.starts_with(FromWindows1252({&byte, 1}))) return byte;
  }
  return '?';
}

std::optional<std::string> ToWindows1252(std::string_view utf8) {
  static const std::map<std::string, char> kBytes = BytesOfWindows1252();
  std::string bytes;
  while (!utf8.empty()) {
    const std::string character = FirstCharacters(utf8, 1);
    const auto found = kBytes.find(character);
    if (found == kBytes.end()) return std::nullopt;
    bytes += found->second;
    utf8.remove_prefix(character.size());
  }
  return bytes;
}

std::string ToUtf8(std::string_view bytes) {
  return IsUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

std::string ShownLine(std::string_view bytes, std::size_t limit) {
  std::string shown = Quoted(bytes, limit);
  std::replace(shown.begin(), shown.end(), '\x7F', ' ');
  return shown;
}

std::string LoggedLine(std::string_view bytes) { return Quoted(bytes, kLoggedLine); }

}  // namespace orvenza
