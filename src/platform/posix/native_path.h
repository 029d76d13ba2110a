#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// The drive ("Z:") or server share ("\\server\share") at the start of `path`, as written. This system has no
/// drives, so such a path cannot exist here. Empty for every other path.
std::string MissingDrive(std::string_view path);

/// `path` in the system's form, with "/" as separator and the same length. Throws SystemError: 52 for an
/// empty path or one with a NUL, 76 for a path on a missing drive.
std::string NativePath(const std::string& path);

/// The same for a folder's path; trailing separators are dropped.
std::string NativeFolderPath(const std::string& path);

}  // namespace orvenza
