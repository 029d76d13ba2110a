#pragma once

#include "lab/shell/machine.h"

namespace orvenza {

/// Follows the link control's registration from its name to its library.
ControlRegistration SearchControl();

}  // namespace orvenza
