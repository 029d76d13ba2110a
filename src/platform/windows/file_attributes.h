#pragma once

#include <optional>
#include <string>

namespace orvenza {

/// The FILE_ATTRIBUTE_ bits of a file or folder; empty when there is none, or when the path is impossible.
/// `asFolder` ignores trailing separators. Throws SystemError when the system cannot tell.
std::optional<unsigned long> AttributesIfThere(const std::string& path, bool asFolder);

}  // namespace orvenza
