#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// Examines the link control and the serial port.
Findings FindInLink(const Installation& shop);

}  // namespace orvenza
