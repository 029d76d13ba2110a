#pragma once

#include "lab/shell/command.h"

namespace orvenza {

/// `orvenza-lab rehearse`: plays a scenario and prints the transcript.
Command RehearseCommand();

}  // namespace orvenza
