#pragma once

#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal_outcome.h"
#include "lab/rehearsal/scenario.h"
#include "lab/table/fault_case.h"
#include "lab/table/slips.h"

namespace orvenza {

/// A text that only the earlier ticket of a step prints.
inline constexpr const char* kEarlierItem = "ALTRO";

/// The slips of the scenario's last ticket alone, with a register without faults.
std::vector<Slip> SlipsExpected(const Scenario& scenario);

/// The folder of the outcomes in the rehearsals of the table.
inline constexpr const char* kOutcomes = "C:\\Esiti";

/// What the outcome of the ticket file `name` says of the receipt.
Claim ClaimOf(const std::string& name, const RehearsalOutcome& outcome);

/// Whether the paper bears it out: "yes" is exactly one whole copy and nothing else, "no" is no whole copy.
bool IsTrue(Claim claim, const CustomerPaper& paper);

/// Where the file with this content is.
FileEnd FileEndOf(const std::string& content, const RehearsalOutcome& outcome);

}  // namespace orvenza
