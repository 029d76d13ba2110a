#pragma once

#include <string>

namespace orvenza {

/// The failure number for the system's error code `code` (an errno value).
int NumberOf(int code);

/// Whether the code of a failed look says that there is no such file or folder, or that none can have such a
/// name.
bool MeansMissing(int code);

/// Throws the SystemError for a failed operation on the file `path`, which becomes its detail: a missing file
/// is 53 where its folder exists, else 76.
[[noreturn]] void ThrowFileError(int code, const std::string& path);

/// The same for an operation on a folder: whatever is missing is 76.
[[noreturn]] void ThrowFolderError(int code, const std::string& path);

}  // namespace orvenza
