#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// Examines the program's own files (logs, command file, texts) and whether it is running.
Findings FindInProgram(const Installation& shop);

}  // namespace orvenza
