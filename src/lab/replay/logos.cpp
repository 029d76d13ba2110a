#include "lab/replay/logos.h"

#include <algorithm>
#include <charconv>

#include "core/text.h"
#include "tickets/logo_request.h"
#include "tickets/record.h"

namespace orvenza {
namespace {

constexpr std::string_view kRow = "4052";
constexpr std::size_t kRowDigits = 3;
constexpr std::size_t kPixelDigits = 112;

int NumberIn(std::string_view digits, int base = 10) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  return number;
}

/// A line of a file in the trace as bytes.
std::string Bytes(std::string_view line) {
  std::string bytes;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool number = line[i] == '<' && i + 3 < line.size() && line[i + 3] == '>';
    bytes += number ? static_cast<char>(NumberIn(line.substr(i + 1, 2), 16)) : line[i];
    if (number) i += 3;
  }
  return bytes;
}

}  // namespace

std::map<std::string, int> FindLogos(const std::vector<TracedEvent>& events, const WorkSpan& span,
                                     char separator) {
  std::map<std::string, std::string> numbers;  // by path
  std::map<std::string, int> rows;             // by number
  RecordFields fields;
  for (std::size_t i = span.first; i < span.end; ++i) {
    for (const std::string& line : events[i].lines) {
      SplitRecord(Bytes(line), separator, fields);
      if (fields[0] != "33") continue;
      const LogoRequest logo = LogoRequestOf(fields);
      numbers[logo.path] = logo.number;
    }
    const std::string_view text = events[i].text;
    if (events[i].kind != "sent" || !text.starts_with(kRow) ||
        text.size() < kRow.size() + kRowDigits + kPixelDigits)
      continue;
    const std::size_t counter = text.size() - kPixelDigits - kRowDigits;
    int& most = rows[std::string(text.substr(kRow.size(), counter - kRow.size()))];
    most = std::max(most, NumberIn(text.substr(counter, kRowDigits)));
  }
  std::map<std::string, int> logos;
  for (const auto& [path, number] : numbers) {
    if (rows.contains(number) && !path.empty()) logos[path] = rows[number];
  }
  return logos;
}

}  // namespace orvenza
