#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orvenza {

/// The parsed command line.
struct CommandLine {
  bool help = false;
  bool version = false;
  std::string folder;                 ///< Program folder; empty for the executable's folder.
  bool simulate = false;              ///< Use the simulated register.
  std::optional<std::string> script;  ///< Path of the fault script.
  std::string error;                  ///< Why the arguments are invalid; empty if they are valid.
};

/// Parses the arguments, without the program name.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& words);

/// The help page. `menu` explains how to open this program's menu.
std::string Usage(const std::string& menu);

}  // namespace orvenza
