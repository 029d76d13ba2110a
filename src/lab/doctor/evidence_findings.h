#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"
#include "tickets/remembered_tickets.h"

namespace orvenza {

/// Examines what is known about interrupted tickets: which of them the next start asks about. Nothing if
/// AskInDoubt is off, or while a connector runs. `remembered` are files that it does not touch.
Findings FindInEvidence(const Installation& shop, const RememberedFiles& remembered);

}  // namespace orvenza
