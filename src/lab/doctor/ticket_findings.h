#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// Examines the ticket folders: waiting, left over, given up and printed tickets.
Findings FindInTickets(const Installation& shop);

}  // namespace orvenza
