#include "lab/paper/slip_text.h"

#include "core/text.h"
#include "simulator/paper_roll.h"

namespace orvenza {
namespace {

constexpr std::size_t kInside = kPaperColumns + 2;

std::string Edge(bool whole) {
  std::string edge(kInside, '-');
  for (std::size_t at = 1; !whole && at < kInside; at += 2) edge[at] = ' ';
  return "+" + edge + "+\n";
}

}  // namespace

std::string SlipText(const PaperSlip& slip) {
  std::string text = Edge(true);
  for (const PaperRow& row : slip.rows) {
    const std::size_t blanks = kPaperColumns - CountCharacters(row.text);
    text.append("| ").append(row.text).append(blanks, ' ').append(" |\n");
  }
  return text + Edge(slip.cut);
}

}  // namespace orvenza
