#pragma once

#include "lab/machine.h"

namespace orvenza {

/// Follows the link control's registration from its name to the library.
ControlRegistration SearchControl();

}  // namespace orvenza
