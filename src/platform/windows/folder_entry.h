#pragma once

#include <windows.h>

#include <string>

#include "platform/folders.h"

namespace orvenza {

/// Converts a directory entry. `name` is its name in UTF-8; the one in `data` is ignored. Folders have size
/// 0.
FolderEntry EntryOf(const WIN32_FIND_DATAW& data, std::string name);

}  // namespace orvenza
