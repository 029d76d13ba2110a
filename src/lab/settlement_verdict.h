#pragma once

#include <string>
#include <vector>

#include "lab/settlement.h"

namespace orvenza {

/// The lines of the error log, each once, in the order of their first appearance. What differs from one error
/// or line to the next is left out.
std::vector<std::string> ErrorLines(const RehearsalOutcome& outcome);

/// What `end` comes to, by its answers, its paper and its file.
Verdict VerdictOf(const SettlementEnd& end);

/// A behaviour that is as it must be and yet may lead to a forbidden end.
struct Prescription {
  const char* reason;
  bool (*explains)(const SettlementStep& step, const SettlementFault& fault, const SettlementEnd& end);
};

/// All of them. The first one that explains an end counts.
const std::vector<Prescription>& Prescriptions();

/// What prescribes a forbidden end; empty where nothing does, and for every other end.
std::string PrescribedBy(const SettlementStep& step, const SettlementFault& fault, const SettlementEnd& end);

}  // namespace orvenza
