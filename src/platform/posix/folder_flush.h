#pragma once

#include <string>

namespace orvenza {

/// Flushes the directory that contains `native` to disk, so that a name just added or removed survives a
/// power failure. Errors are ignored: the file has its name anyway, and not every file system supports this.
void FlushFolderOf(const std::string& native);

}  // namespace orvenza
