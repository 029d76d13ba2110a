#pragma once

#include <string>

#include "platform/files.h"

namespace orvenza {

/// Makes, renames and removes a file of its own in an existing folder, which ends in "\": what the connector
/// does with tickets. No listing shows that file, so a running connector never takes it for a ticket. Returns
/// what cannot be done and why, "" where all of it can. The file is gone afterwards, unless none can be
/// removed there.
std::string TryFolder(Files& files, const std::string& folder);

}  // namespace orvenza
