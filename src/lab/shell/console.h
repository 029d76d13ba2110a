#pragma once

#include <cstdlib>
#include <istream>
#include <ostream>

namespace orvenza {

/// Input and output of the lab's commands. All texts are UTF-8.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool colours = false;   ///< `out` is a terminal with colours, and NO_COLOR is not set.
  bool progress = false;  ///< `err` is a terminal, so a line can be overwritten.
  bool terminal = false;  ///< `out` is a terminal, with or without colours.
};

/// False if the environment variable NO_COLOR is set.
inline bool WantsColours() {
  const char* refused = std::getenv("NO_COLOR");
  return refused == nullptr || *refused == '\0';
}

}  // namespace orvenza
