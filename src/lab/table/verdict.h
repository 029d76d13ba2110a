#pragma once

#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/table/fault_case.h"

namespace orvenza {

/// The lines of the error log without repetitions, in order of first appearance, without variable parts.
std::vector<std::string> ErrorLines(const RehearsalOutcome& outcome);

bool IsForbidden(Verdict verdict);

/// The verdict on `end`, from its answers, paper and file. With kAskInDoubt an answer explains only what it
/// asks for.
Verdict VerdictOf(const TicketEnd& end, WayOfWorking way = WayOfWorking::kContract);

/// The verdict on an `end` in which the operator lost patience.
Verdict AskedOn(const TicketEnd& end, WayOfWorking way);

/// A required behaviour that may nevertheless lead to a forbidden end.
struct Rule {
  const char* reason;
  bool (*explains)(const TicketStep& step, const StepFault& fault, const TicketEnd& end);
};

/// All rules. The first one that explains an end counts.
const std::vector<Rule>& Rules();

/// The rule that explains a forbidden end; empty if there is none, or if the end is not forbidden.
std::string RuleFor(const TicketStep& step, const StepFault& fault, const TicketEnd& end);

}  // namespace orvenza
