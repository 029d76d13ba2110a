#pragma once

#include <cstdlib>
#include <istream>
#include <ostream>

namespace orvenza {

/// Where a command of the lab reads and writes. All texts are UTF-8.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  bool colours = false;   ///< `out` is a terminal that shows colours, and NO_COLOR is not set.
  bool progress = false;  ///< `err` is a terminal: a line there may be written over.
  bool terminal = false;  ///< `out` is a terminal, whatever it shows.
};

/// Whether the user's environment does not refuse colours with NO_COLOR.
inline bool WantsColours() {
  const char* refused = std::getenv("NO_COLOR");
  return refused == nullptr || *refused == '\0';
}

}  // namespace orvenza
