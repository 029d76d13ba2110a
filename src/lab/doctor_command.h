#pragma once

#include <optional>
#include <vector>

#include "core/settings.h"
#include "lab/commands.h"

namespace orvenza {

/// "doctor": looks at an installation before opening time.
Command DoctorCommand();

/// The options of a command that is about an installation, and those of its own behind them.
std::vector<Option> InstallationOptions(const std::vector<Option>& own);

/// The installation that they choose. Nothing, and a word on the error output, where the folder is none.
std::optional<ProgramPaths> ChosenInstallation(const Arguments& arguments, const LabSurroundings& lab);

}  // namespace orvenza
