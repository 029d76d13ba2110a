#pragma once

#include "lab/shell/command.h"

namespace orvenza {

/// `orvenza-lab table`: writes the failure table.
Command TableCommand();

}  // namespace orvenza
