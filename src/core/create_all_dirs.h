#pragma once

#include <string>

#include "core/logs.h"
#include "platform/folders.h"

namespace orvenza {

/// Creates the folder `path` level by level, with or without a trailing "\". Throws SystemError.
void MakeAllDirs(Folders& folders, const std::string& path);

/// Creates the folder `path` level by level, with or without a trailing "\". Returns whether the whole path
/// exists afterwards; a failure goes to the error log.
[[nodiscard]] bool CreateAllDirs(Folders& folders, Logs& logs, const std::string& path);

}  // namespace orvenza
