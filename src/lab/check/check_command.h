#pragma once

#include "lab/shell/command.h"

namespace orvenza {

/// Shows what the connector makes of each line of ticket files.
Command CheckCommand();

}  // namespace orvenza
