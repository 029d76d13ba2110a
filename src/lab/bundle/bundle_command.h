#pragma once

#include "lab/shell/command.h"

namespace orvenza {

/// "bundle": one file for support.
Command BundleCommand();

}  // namespace orvenza
