#pragma once

#include <string>

namespace orvenza {

/// The failure number for the system's error code `code` (a GetLastError value).
int NumberOf(unsigned long code);

/// Whether the code of a failed look says that there is no such file, folder or drive, or that none can have
/// such a name.
bool MeansMissing(unsigned long code);

/// Throws the SystemError for a failed operation on the file `path`, which becomes its detail: a missing file
/// is 53 where its folder exists, else 76.
[[noreturn]] void ThrowFileError(unsigned long code, const std::string& path);

/// The same for an operation on a folder: whatever is missing is 76.
[[noreturn]] void ThrowFolderError(unsigned long code, const std::string& path);

}  // namespace orvenza
