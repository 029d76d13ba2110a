#include "simulator/paper_layout.h"

#include <cstddef>
#include <cstdio>

#include "simulator/paper_roll.h"

namespace orvenza {

std::string FormatCents(std::int64_t cents) {
  const std::int64_t size = cents < 0 ? -cents : cents;
  std::string whole = std::to_string(size / 100);
  for (std::size_t end = whole.size(); end > 3; end -= 3) whole.insert(end - 3, ".");
  char fraction[8];
  std::snprintf(fraction, sizeof fraction, ",%02d", static_cast<int>(size % 100));
  return (cents < 0 ? "-" : "") + whole + fraction;
}

std::string FormatQuantity(std::int64_t thousandths) {
  const std::string whole = std::to_string(thousandths / 1000);
  if (thousandths % 1000 == 0) return whole;
  char fraction[8];
  std::snprintf(fraction, sizeof fraction, ",%03d", static_cast<int>(thousandths % 1000));
  return whole + fraction;
}

std::string Spread(std::string_view left, std::string_view right) {
  std::string line(left.substr(0, kPaperColumns - 1 - right.size()));
  line.resize(kPaperColumns - right.size(), ' ');
  return line.append(right);
}

std::string Centred(std::string_view text) {
  if (text.size() >= kPaperColumns) return std::string(text.substr(0, kPaperColumns));
  return std::string((kPaperColumns - text.size()) / 2, ' ').append(text);
}

std::string Divider() { return std::string(kPaperColumns, '-'); }

}  // namespace orvenza
