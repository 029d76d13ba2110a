#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// The drive ("C:") or server share ("\\server\share") that `path` begins with, as it is spelled. Empty for a
/// path without either.
std::string DriveIn(std::string_view path);

/// `path` in the system's letters, as long as it is. Throws SystemError 52 for an empty path and one with a
/// NUL.
std::wstring PlainPath(const std::string& path);

/// `path` as the system's file functions take it: a long one in the form that they do not limit. Throws
/// SystemError 52 for an empty path and one with a NUL.
std::wstring NativePath(const std::string& path);

/// The same for the path of a folder, without trailing separators but for that of a drive ("C:\").
std::wstring NativeFolderPath(const std::string& path);

}  // namespace orvenza
