#pragma once

#include "lab/shell/command.h"

namespace orvenza {

/// "hand-over": writes tickets into the ticket folder as a host does.
Command HandOverCommand();

}  // namespace orvenza
