#pragma once

#include <algorithm>
#include <string_view>

#include "simulator/script_line.h"
#include "targets.h"

namespace orvenza::fuzz {

/// Requires that `failure` names lines of `input`, in their order, and what is expected there.
inline void RequireNamedLine(const ScriptError& failure, std::string_view file, std::string_view input) {
  const auto lines = 1 + static_cast<std::size_t>(std::count(input.begin(), input.end(), '\n'));
  Require(failure.file == file, "the file is named");
  Require(!failure.mistakes.empty(), "there is a mistake");
  std::size_t last = 0;
  for (const auto& [line, expected] : failure.mistakes) {
    Require(line > last && line <= lines, "each line is named once");
    Require(!expected.empty(), "what is expected there is said");
    last = line;
  }
}

}  // namespace orvenza::fuzz
