#pragma once

#include <string>

#include "core/logs.h"
#include "platform/folders.h"

namespace orvenza {

/// Makes the folder `path` level by level, with or without a "\" at its end. Returns whether the whole path
/// exists afterwards; a failure is written to the error log.
[[nodiscard]] bool CreateAllDirs(Folders& folders, Logs& logs, const std::string& path);

}  // namespace orvenza
