#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// The drive ("C:") or server share ("\\server\share") at the start of `path`, as written. Empty for a path
/// without either.
std::string DriveIn(std::string_view path);

/// `path` in UTF-16, of any length. Throws SystemError 52 for an empty path or one with a NUL.
std::wstring PlainPath(const std::string& path);

/// `path` for the system's file functions; a long path takes the form without a length limit. Throws
/// SystemError 52 for an empty path or one with a NUL.
std::wstring NativePath(const std::string& path);

/// The same for a folder's path, without trailing separators except after a drive ("C:\").
std::wstring NativeFolderPath(const std::string& path);

}  // namespace orvenza
