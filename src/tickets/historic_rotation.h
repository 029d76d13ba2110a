#pragma once

#include "core/journals.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "platform/folders.h"

namespace orvenza {

/// Gives the historic folder the date of its newest ticket when that is not today's, and makes it again
/// empty. A missing folder is left missing; an empty one gets the date zero. Where the folder cannot be made
/// again, the historic path is emptied and tickets are not archived in this run. Throws SystemError when the
/// rename fails (75 for a folder in use), with nothing changed.
void RotateHistoricFolder(Folders& folders, const Clock& clock, Journals& journals, AppSettings& settings);

}  // namespace orvenza
