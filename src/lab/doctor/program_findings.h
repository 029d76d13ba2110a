#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// The program's own files: its logs, the command file, the texts; and whether it runs already.
Findings FindInProgram(const Installation& shop);

}  // namespace orvenza
