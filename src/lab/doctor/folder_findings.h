#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// Whether the folders can be used: there, writable, on one volume, with room left.
Findings FindInFolders(const Installation& shop);

}  // namespace orvenza
