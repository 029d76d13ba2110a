#pragma once

#include <vector>

#include "lab/shell/command.h"

namespace orvenza {

/// The commands, in the order of the help page.
std::vector<Command> Commands();

}  // namespace orvenza
