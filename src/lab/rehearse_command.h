#pragma once

#include "lab/commands.h"

namespace orvenza {

/// `orvenza-lab rehearse`: plays a scenario and prints the transcript.
Command RehearseCommand();

}  // namespace orvenza
