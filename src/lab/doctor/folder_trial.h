#pragma once

#include <string>

#include "platform/files.h"

namespace orvenza {

/// Creates, renames and removes a file of its own in an existing folder, which ends in "\", as the connector
/// does with tickets. Listings never show that file, so a running connector cannot take it for a ticket.
/// Returns the step that failed and why; "" if all succeeded. The file is removed afterwards, unless the
/// folder does not allow it.
[[nodiscard]] std::string TryFolder(Files& files, const std::string& folder);

}  // namespace orvenza
