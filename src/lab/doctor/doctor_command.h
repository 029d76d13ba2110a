#pragma once

#include <vector>

#include "core/settings.h"
#include "lab/shell/command.h"

namespace orvenza {

/// "doctor": looks at an installation before opening time.
Command DoctorCommand();

/// The options of a command that is about an installation, and those of its own behind them.
std::vector<Option> InstallationOptions(const std::vector<Option>& own);

/// The installation that they choose. Throws std::runtime_error where the folder is none.
ProgramPaths ChosenInstallation(const Arguments& arguments, const LabSurroundings& lab);

}  // namespace orvenza
