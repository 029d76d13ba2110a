#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// The drive ("Z:") or server share ("\\server\share") that `path` begins with, as it is spelled. Such a path
/// lies on a drive that this system does not have. Empty for every other path.
std::string MissingDrive(std::string_view path);

/// `path` as the system spells it, with "/" between its levels and as many characters. Throws SystemError: 52
/// for an empty path and one with a NUL, 76 for a path on a missing drive.
std::string NativePath(const std::string& path);

/// The same for the path of a folder, without the trailing separators.
std::string NativeFolderPath(const std::string& path);

}  // namespace orvenza
