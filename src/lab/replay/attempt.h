#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "lab/replay/traced_settings.h"

namespace orvenza {

/// What a line "failed" or "works" of a trace says.
struct Attempt {
  std::string verb;    ///< "move", "append to", "set the clock"; all of it if it has no path.
  std::string path;    ///< As a scenario takes it; of a drive its name.
  std::string target;  ///< Target of a copy or move; otherwise empty.
  int number = 0;      ///< Error number; 0 if it works.
};

Attempt ReadAttempt(const std::string& text, bool failed, const TracedSettings& settings);

// Parts of lines and of paths.

/// Splits "A WORD B" at the last WORD; B is empty if there is none.
std::pair<std::string, std::string> SplitAt(const std::string& text, std::string_view word);

/// A path as a line of a scenario names it.
std::string Named(const std::string& path);

/// The drive of a scenario's path.
std::string DriveOf(const std::string& path);

/// A folder without the "\" at its end.
std::string WithoutEnd(std::string folder);

}  // namespace orvenza
