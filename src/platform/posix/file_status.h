#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace orvenza {

/// What the system says of a file or folder; nothing where it says that there is none, or that none can have
/// such a path. Throws SystemError when it cannot tell.
std::optional<struct stat> StatusIfThere(const std::string& path);

}  // namespace orvenza
