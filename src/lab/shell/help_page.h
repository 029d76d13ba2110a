#pragma once

#include <string>
#include <vector>

#include "lab/shell/command.h"

namespace orvenza {

/// The help page of a command.
std::string HelpPage(const Command& command);

/// The help page of the program, which lists its commands.
std::string HelpPage(const std::vector<Command>& commands);

}  // namespace orvenza
