#pragma once

#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/table/fault_case.h"

namespace orvenza {

/// The lines of the error log, each once, in the order of their first appearance. What differs from one error
/// or line to the next is left out.
std::vector<std::string> ErrorLines(const RehearsalOutcome& outcome);

bool IsForbidden(Verdict verdict);

/// What `end` comes to, by its answers, its paper and its file.
Verdict VerdictOf(const TicketEnd& end);

/// A behaviour that is as it must be and yet may lead to a forbidden end.
struct Rule {
  const char* reason;
  bool (*explains)(const TicketStep& step, const StepFault& fault, const TicketEnd& end);
};

/// All of them. The first one that explains an end counts.
const std::vector<Rule>& Rules();

/// The rule that explains a forbidden end; empty where none does, and for every other end.
std::string RuleFor(const TicketStep& step, const StepFault& fault, const TicketEnd& end);

}  // namespace orvenza
