#pragma once

#include <string>

#include "lab/rehearsal/dialog_html.h"
#include "lab/rehearsal/rehearsal_outcome.h"

namespace orvenza {

/// A rehearsal as a page: what happened in time, with the dialogs, beside the paper. Each event links to what
/// it printed, and the paper links back. `name` and `text` are those of the scenario; `dialogs` are all that
/// appeared.
[[nodiscard]] std::string RehearsalPage(const std::string& name, const std::string& text,
                                        const RehearsalOutcome& outcome, const DialogRecord& dialogs);

}  // namespace orvenza
