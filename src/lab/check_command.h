#pragma once

#include "lab/commands.h"

namespace orvenza {

/// Shows what the connector makes of each line of ticket files.
Command CheckCommand();

}  // namespace orvenza
