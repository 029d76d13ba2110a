#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// Examines the folder of the outcomes; nothing if the settings name none.
Findings FindInOutcomes(const Installation& shop);

}  // namespace orvenza
