#pragma once

#include <string>

namespace orvenza {

/// What --version says: the version and, if the program was built from a git checkout, its commit: "1.0.0
/// (commit abcdef1234)". Logs, captions and JSON say kVersionText instead.
std::string BuildVersion();

}  // namespace orvenza
