#pragma once

#include <string>
#include <vector>

#include "lab/shell/command.h"

namespace orvenza {

/// The files that the words of a command line name. A mask is expanded, sorted by name, since the shells of
/// Windows do not expand masks. A mask that fits nothing stays as it is.
std::vector<std::string> FilesNamed(const std::vector<std::string>& words,
                                    const LabSurroundings& surroundings);

}  // namespace orvenza
