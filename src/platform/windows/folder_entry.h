#pragma once

#include <windows.h>

#include <string>

#include "platform/folders.h"

namespace orvenza {

/// One entry of a folder listing as the system found it. `name` is the entry's name in UTF-8; that of `data`
/// is not looked at. Folders have the size 0.
FolderEntry EntryOf(const WIN32_FIND_DATAW& data, std::string name);

}  // namespace orvenza
