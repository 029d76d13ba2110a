#include "lab/paper/paper_slip.h"

#include <algorithm>

#include "core/text.h"
#include "lab/shell/wording.h"
#include "simulator/paper_layout.h"
#include "simulator/paper_roll.h"

namespace orvenza {
namespace {

constexpr std::string_view kContinued = "    ";

/// Removes and returns the beginning of `text` that fits into `columns`, up to a blank if there is one.
std::string TakeRow(std::string& text, std::size_t columns) {
  std::string row = FirstCharacters(text, columns);
  if (row.size() < text.size() && text[row.size()] != ' ') {
    const std::size_t blank = row.rfind(' ');
    if (blank != std::string::npos && blank > 0) row.resize(blank);
  }
  text.erase(0, row.size());
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  return row;
}

}  // namespace

bool EndsWithCut(const std::vector<std::string>& lines) {
  // A text of a ticket that looks like the cut is printed by a command of its own.
  return lines.size() > 1 && lines.back() == Divider();
}

PaperRow PrintedRow(const std::string& line) {
  return {PaperRow::Kind::kPrinted, ShownBytes(FromWindows1252(line))};
}

PaperSlip& SlipRecorder::Current() {
  if (slips_.empty() || slips_.back().cut) slips_.emplace_back();
  return slips_.back();
}

void SlipRecorder::EndCommand() {
  const bool cut = EndsWithCut(printed_);
  if (cut) printed_.pop_back();
  for (const std::string& line : printed_) Current().rows.push_back(PrintedRow(line));
  if (cut) Current().cut = true;
  printed_.clear();
}

void SlipRecorder::Add(PaperRow::Kind kind, std::string_view text) {
  std::string rest = ShownBytes(text);
  std::vector<PaperRow>& rows = Current().rows;
  rows.push_back({kind, TakeRow(rest, kPaperColumns)});
  while (!rest.empty()) {
    rows.push_back({kind, std::string(kContinued) + TakeRow(rest, kPaperColumns - kContinued.size())});
  }
}

}  // namespace orvenza
