#pragma once

#include <vector>

#include "core/settings.h"
#include "lab/shell/command.h"

namespace orvenza {

/// "doctor": examines an installation before opening time.
Command DoctorCommand();

/// The options that select an installation, followed by a command's own.
std::vector<Option> InstallationOptions(const std::vector<Option>& own);

/// The installation that they select. Throws std::runtime_error if the folder is not one.
ProgramPaths ChosenInstallation(const Arguments& arguments, const LabSurroundings& lab);

}  // namespace orvenza
