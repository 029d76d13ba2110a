#pragma once

#include <string>
#include <vector>

#include "lab/shell/command.h"

namespace orvenza {

/// The program: runs the command that `words`, the arguments without the program name, select, and returns
/// the exit code.
int RunLab(const std::vector<std::string>& words, const std::vector<Command>& commands,
           LabSurroundings& surroundings);

}  // namespace orvenza
