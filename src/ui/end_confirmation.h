#pragma once

#include "ui/operator_message.h"

namespace orvenza {

/// Asks whether the program is really to end, since no receipt can be printed any more. True only for a clear
/// yes.
[[nodiscard]] bool ConfirmEnd(OperatorMessages& messages, MessageIcon icon);

}  // namespace orvenza
