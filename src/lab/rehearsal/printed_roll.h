#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"

namespace orvenza {

/// The lines that one event printed, in the register's encoding.
struct PrintedPart {
  std::size_t event = 0;  ///< Index of the event in the outcome: the command, otherwise the first "paper".
  std::vector<std::string> lines;
  bool cut = false;  ///< The paper is cut behind it. The line that marks the cut is not among the lines.
};

/// The paper of a rehearsal, in order. The outcome needs its events.
[[nodiscard]] std::vector<PrintedPart> PrintedParts(const RehearsalOutcome& outcome);

}  // namespace orvenza
