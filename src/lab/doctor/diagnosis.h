#pragma once

#include <ostream>
#include <string>

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"
#include "lab/shell/command.h"

namespace orvenza {

/// Looks at the installation in a program folder. Changes nothing.
Installation LookAt(const LabSurroundings& lab, const ProgramPaths& paths);

/// All that is to be said about an installation, in the order of its parts. In the folders of tickets a file
/// is made, renamed and removed.
Findings Diagnose(const Installation& shop);

/// The exit status that findings stand for: 0, with warnings 1, with errors 2.
int StatusOf(const Findings& findings);

/// Writes the findings as a table with a summary line.
void WriteDiagnosis(std::ostream& out, const Installation& shop, const Findings& findings, bool colours);

/// Writes them as one JSON object.
void WriteDiagnosisAsJson(std::ostream& out, const Installation& shop, const Findings& findings);

}  // namespace orvenza
