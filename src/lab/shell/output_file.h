#pragma once

#include <string>
#include <vector>

#include "lab/shell/command.h"

namespace orvenza {

/// Refuses an output before any work is done for it: its folder is missing or cannot be written to, or it
/// is one of `sources`, however their paths are written. Throws std::runtime_error with the reason.
void RequireOutput(const std::string& path, const std::vector<std::string>& sources,
                   const LabSurroundings& lab);

/// The same for an HTML page, which replaces only another page or an empty file.
void RequirePage(const std::string& path, const LabSurroundings& lab);

}  // namespace orvenza
