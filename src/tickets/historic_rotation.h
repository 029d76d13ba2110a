#pragma once

#include <string>
#include <vector>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "platform/folders.h"

namespace orvenza {

/// Whether the historic folder is one of the folders searched for tickets, or is above the ticket folder or
/// the program folder `appPath` (without a trailing "\"). Printed tickets there would be taken for new ones,
/// and its rotation would remove waiting ones, so it must not be used. The decision compares path texts:
/// letter case, double separators, "." and ".." are recognised, a link or another drive letter is not.
bool HistoricHoldsTickets(const AppSettings& settings, const std::string& appPath);

/// Renames the historic folder with the date of its newest ticket unless that is today, and creates it again
/// empty. Files that match the ticket mask count as tickets, and so do files named like archived ones. A
/// missing folder is not created; an empty one gets the date zero. If the folder cannot be created again, the
/// historic path is cleared and tickets are not archived in this run. Throws SystemError when renaming fails
/// (75 for a folder in use), with nothing changed.
void RotateHistoricFolder(Folders& folders, const Clock& clock, Logs& logs, AppSettings& settings);

/// The folders that the rotation renamed on earlier days, each with a trailing "\", the earliest first; none
/// for an empty `historic`. Throws SystemError.
std::vector<std::string> EarlierDays(const Folders& folders, const std::string& historic);

}  // namespace orvenza
