#pragma once

#include <string>
#include <vector>

namespace orvenza {

/// The words behind the program's name on its command line, in UTF-8.
std::vector<std::string> CommandWords();

/// The folder of the executable, without a "\" at its end.
std::string HomeFolder();

/// The name of the executable, without its extension.
std::string ProgramName();

/// `folder` from the root of its drive on, without a "\" at its end.
std::string FullFolder(const std::string& folder);

}  // namespace orvenza
