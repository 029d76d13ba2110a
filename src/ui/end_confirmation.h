#pragma once

#include "ui/operator_message.h"

namespace orvenza {

/// Asks whether to end the program, since no receipt can be printed any more. True only for an explicit yes.
[[nodiscard]] bool ConfirmEnd(OperatorMessages& messages, MessageIcon icon);

}  // namespace orvenza
