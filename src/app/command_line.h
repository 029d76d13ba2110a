#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orvenza {

/// What the program was asked on its command line.
struct CommandLine {
  bool help = false;
  bool version = false;
  std::string folder;                 ///< Program folder; empty: where the executable lies.
  bool simulate = false;              ///< Use the simulated register.
  std::optional<std::string> script;  ///< Its script.
  std::string error;                  ///< What is wrong with the words; empty: nothing.
};

/// Reads the words after the program's name.
CommandLine ParseCommandLine(const std::vector<std::string>& words);

/// The help page. `menu` is the sentence that says how this program's menu is opened.
std::string Usage(const std::string& menu);

}  // namespace orvenza
