#pragma once

#include "lab/commands.h"

namespace orvenza {

/// "bundle": one file for support.
Command BundleCommand();

}  // namespace orvenza
