#pragma once

#include <string>
#include <vector>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "platform/folders.h"

namespace orvenza {

/// Whether the historic folder is one in which tickets are looked for, or lies above the ticket folder or the
/// program folder `appPath` (without a "\" at its end). Printed tickets put there would be taken for new
/// ones, and its rotation would carry waiting ones away, so it must not be used. Told by the texts of the
/// paths: letter case, doubled separators, "." and ".." do not hide it, a link or another drive letter does.
bool HistoricHoldsTickets(const AppSettings& settings, const std::string& appPath);

/// Gives the historic folder the date of its newest ticket when that is not today's, and makes it again
/// empty. All that fits the ticket mask counts as a ticket, and so does what has an archived one's name. A
/// missing folder is left missing; an empty one gets the date zero. Where the folder cannot be made again,
/// the historic path is emptied and tickets are not archived in this run. Throws SystemError when the rename
/// fails (75 for a folder in use), with nothing changed.
void RotateHistoricFolder(Folders& folders, const Clock& clock, Logs& logs, AppSettings& settings);

/// The folders that it gave the dates of earlier days, with "\" at their ends, the earliest first; none for
/// an empty `historic`. Throws SystemError.
std::vector<std::string> EarlierDays(const Folders& folders, const std::string& historic);

}  // namespace orvenza
