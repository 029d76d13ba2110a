#pragma once

#include <cstddef>
#include <cstdint>

#include "lab/shell/command.h"

namespace orvenza {

/// Plays random pairs of faults and writes how they ended. A pair in which something happened that nobody
/// chose is written as a scenario that plays it again. Returns the exit code.
int ReportPairs(std::size_t count, std::uint64_t seed, LabSurroundings& lab);

}  // namespace orvenza
