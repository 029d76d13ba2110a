#pragma once

#include "lab/shell/command.h"

namespace orvenza {

/// "orvenza-lab replay": writes a scenario from a trace.
Command ReplayCommand();

}  // namespace orvenza
