#pragma once

#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// The expectations that `outcome` does not meet, each as a sentence.
[[nodiscard]] std::vector<std::string> Unfulfilled(const std::vector<Expectation>& expectations,
                                                   const RehearsalOutcome& outcome);

}  // namespace orvenza
