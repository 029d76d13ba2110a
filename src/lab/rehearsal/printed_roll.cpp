#include "lab/rehearsal/printed_roll.h"

#include <algorithm>

#include "lab/paper/paper_slip.h"

namespace orvenza {
namespace {

/// Cuts a part off where the register cuts the paper.
void CutIfComplete(std::vector<PrintedPart>& parts) {
  PrintedPart& part = parts.back();
  part.cut = EndsWithCut(part.lines);
  if (part.cut) part.lines.pop_back();
}

}  // namespace

std::vector<PrintedPart> PrintedParts(const RehearsalOutcome& outcome) {
  std::vector<PrintedPart> parts;
  std::size_t line = 0;
  std::size_t origin = 0;
  bool going = false;  // the event before printed, too
  for (std::size_t i = 0; i < outcome.events.size(); ++i) {
    const RehearsalEvent& event = outcome.events[i];
    if (event.kind != "paper") {
      going = false;
      continue;
    }
    if (!going) origin = i > 0 && outcome.events[i - 1].kind == "sent" ? i - 1 : i;
    if (!going || parts.back().cut) parts.push_back({origin, {}});
    going = true;
    for (std::size_t n = 0; n < event.times && line < outcome.paper.size(); ++n) {
      parts.back().lines.push_back(outcome.paper[line++]);
    }
    CutIfComplete(parts);
  }
  return parts;
}

}  // namespace orvenza
