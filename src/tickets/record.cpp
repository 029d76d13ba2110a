#include "tickets/record.h"

#include <algorithm>

#include "core/text.h"

namespace orvenza {
namespace {

bool IsBlankOrControl(char c) { return static_cast<unsigned char>(c) <= ' '; }

void BlankOut(std::string& line) {
  for (char& c : line) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 32 || code > 127) c = ' ';
  }
}

}  // namespace

void SplitRecord(std::string_view line, char separator, RecordFields& out) {
  out.line_ = line;
  BlankOut(out.line_);
  const std::string_view text = Trim(out.line_);
  // A line that becomes blank only through other characters is no record either, but is not empty.
  out.empty_ = std::all_of(line.begin(), line.end(), IsBlankOrControl);
  out.count_ = 0;
  out.rest_ = {};
  if (text.empty()) return;

  const auto offset = static_cast<std::size_t>(text.data() - out.line_.data());
  std::size_t start = 0;
  while (out.count_ < RecordFields::kMostFields) {
    const std::size_t end = text.find(separator, start);
    if (end == std::string_view::npos) break;
    out.cuts_[out.count_++] = {offset + start, end - start};
    start = end + 1;
  }
  out.rest_ = {offset + start, text.size() - start};
}

}  // namespace orvenza
