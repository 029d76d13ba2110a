#pragma once

#include <optional>
#include <string>

namespace orvenza {

/// The FILE_ATTRIBUTE_ bits of a file or folder; nothing where the system says that there is none, or that
/// none can have such a path. `asFolder` passes over separators at the end of the path. Throws SystemError
/// when the system cannot tell.
std::optional<unsigned long> AttributesIfThere(const std::string& path, bool asFolder);

}  // namespace orvenza
