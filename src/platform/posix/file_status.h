#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

namespace orvenza {

/// The system's status of a file or folder; empty when there is none, or when the path is impossible. Throws
/// SystemError when the system cannot tell.
std::optional<struct stat> StatusIfThere(const std::string& path);

}  // namespace orvenza
