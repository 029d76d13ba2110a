#pragma once

#include "lab/doctor/findings.h"
#include "lab/doctor/installation.h"

namespace orvenza {

/// Whether the folders are usable: existing, writable, on one volume, with free space.
Findings FindInFolders(const Installation& shop);

}  // namespace orvenza
