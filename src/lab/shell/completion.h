#pragma once

#include <string>
#include <vector>

#include "lab/shell/command.h"

namespace orvenza {

// Scripts that complete command lines of the lab in a shell. The words come from the commands' own tables. A
// value is completed if its placeholder lists the choices ("text|json") or names a folder ("DIR"); all other
// values and arguments are completed as file names.

/// For bash: to be sourced, or kept in a file named orvenza-lab where bash-completion looks.
std::string BashCompletion(const std::vector<Command>& commands);

/// For PowerShell: to be run, as in the user's profile.
std::string PowerShellCompletion(const std::vector<Command>& commands);

}  // namespace orvenza
