#pragma once

#include <string>

namespace orvenza {

/// The failure number for the system's error code `code` (a GetLastError value).
int NumberOf(unsigned long code);

/// Whether the error of a failed check means that there is no such file, folder or drive, or that the name is
/// impossible.
bool MeansMissing(unsigned long code);

/// Throws the SystemError for a failed operation on the file `path`, which becomes the detail. A missing file
/// is 53 if its folder exists, otherwise 76.
[[noreturn]] void ThrowFileError(unsigned long code, const std::string& path);

/// The same for an operation on a folder: anything missing is 76.
[[noreturn]] void ThrowFolderError(unsigned long code, const std::string& path);

}  // namespace orvenza
