#pragma once

#include <ostream>
#include <string>

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"
#include "lab/shell/command.h"

namespace orvenza {

/// Examines the installation in a program folder. Changes nothing.
Installation LookAt(const LabSurroundings& lab, const ProgramPaths& paths);

/// All findings about an installation, part by part. Creates, renames and removes a test file in the ticket
/// folders.
[[nodiscard]] Findings Diagnose(const Installation& shop);

/// The exit code for findings: 0, with warnings 1, with errors 2.
[[nodiscard]] int StatusOf(const Findings& findings);

/// Writes the findings as a table with a summary line.
void WriteDiagnosis(std::ostream& out, const Installation& shop, const Findings& findings, bool colours);

/// Writes the findings as one JSON object.
void WriteDiagnosisAsJson(std::ostream& out, const Installation& shop, const Findings& findings);

}  // namespace orvenza
