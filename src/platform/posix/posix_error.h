#pragma once

#include <string>

namespace orvenza {

/// The failure number for the system's error code `code` (an errno value).
int NumberOf(int code);

/// Whether the error of a failed check means that there is no such file or folder, or that the name is
/// impossible.
bool MeansMissing(int code);

/// Throws the SystemError for a failed operation on the file `path`, which becomes the detail. A missing file
/// is 53 if its folder exists, otherwise 76.
[[noreturn]] void ThrowFileError(int code, const std::string& path);

/// The same for an operation on a folder: anything missing is 76.
[[noreturn]] void ThrowFolderError(int code, const std::string& path);

}  // namespace orvenza
