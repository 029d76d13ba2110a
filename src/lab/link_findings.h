#pragma once

#include "lab/findings.h"
#include "lab/installation.h"

namespace orvenza {

/// The link control and the serial port.
Findings FindInLink(const Installation& shop);

}  // namespace orvenza
