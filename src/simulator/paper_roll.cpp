#include "simulator/paper_roll.h"

#include <utility>

namespace orvenza {

void PaperRoll::Print(std::string line) {
  if (sink_) sink_(line);
  lines_.push_back(std::move(line));
  if (lines_.size() > kLinesKept) lines_.pop_front();
}

std::string PaperRoll::Text() const {
  std::string text;
  for (const auto& line : lines_) text += line + "\n";
  return text;
}

}  // namespace orvenza
