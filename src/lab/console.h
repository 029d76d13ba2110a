#pragma once

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

}  // namespace orvenza
