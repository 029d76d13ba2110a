#pragma once

#include "lab/findings.h"
#include "lab/installation.h"

namespace orvenza {

/// Whether the folders can be used: there, writable, on one volume, with room left.
Findings FindInFolders(const Installation& shop);

}  // namespace orvenza
