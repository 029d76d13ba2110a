#pragma once

#include "lab/shell/command.h"

namespace orvenza {

/// `orvenza-lab preview`: draws the receipts of ticket files.
Command PreviewCommand();

}  // namespace orvenza
