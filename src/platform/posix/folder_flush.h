#pragma once

#include <string>

namespace orvenza {

/// Puts the list of names of the folder in which `native` lies onto the disk, so that a name just given or
/// taken there outlasts a power failure. A failure is passed over: the file has its name all the same, and
/// not every file system offers this.
void FlushFolderOf(const std::string& native);

}  // namespace orvenza
