#pragma once

#include "lab/commands.h"

namespace orvenza {

/// `orvenza-lab table`: writes the settlement table.
Command TableCommand();

}  // namespace orvenza
