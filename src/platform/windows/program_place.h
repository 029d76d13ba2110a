#pragma once

#include <string>
#include <vector>

namespace orvenza {

/// The command line's arguments, without the program name, in UTF-8.
std::vector<std::string> CommandWords();

/// The folder of the executable, without a trailing "\".
std::string HomeFolder();

/// The name of the executable, without its extension.
std::string ProgramName();

/// `folder` as an absolute path, without a trailing "\".
std::string FullFolder(const std::string& folder);

}  // namespace orvenza
