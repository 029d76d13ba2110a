#pragma once

#include <optional>

#include "lab/commands.h"

namespace orvenza {

/// "doctor": looks at an installation before opening time.
Command DoctorCommand();

/// The program folder that the option "--folder" names, else the one where the executable lies; from the root
/// on, without a "\" at its end. Nothing, and a word on the error output, where it is no folder.
std::optional<std::string> ProgramFolder(const Arguments& arguments, const LabSurroundings& lab);

}  // namespace orvenza
