#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/register_state.h"

namespace orvenza {

/// The content of the file that carries a simulated register over a restart of the program.
struct StateFile {
  RegisterState state;
  /// What the latest command printed, without line breaks, and the size in bytes that the paper file had
  /// before it. So the next start can complete a paper whose program was killed between the two files.
  std::vector<std::string> printed{};
  std::uintmax_t paperSize = 0;

  bool operator==(const StateFile&) const = default;
};

/// The file's text; docs/simulator.md describes its form.
std::string StateFileText(StateFile file);

/// Reads such a text. Throws ScriptError with `name` and the line if it is damaged, cut or something else.
StateFile ParseStateFile(const std::string& name, std::string_view text);

}  // namespace orvenza
