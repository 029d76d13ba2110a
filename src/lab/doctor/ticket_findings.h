#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// What lies in the folders of the tickets: waiting, left over, given up, printed.
Findings FindInTickets(const Installation& shop);

}  // namespace orvenza
