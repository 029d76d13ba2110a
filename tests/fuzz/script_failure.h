#pragma once

#include <algorithm>
#include <string_view>

#include "simulator/script_line.h"
#include "targets.h"

namespace orvenza::fuzz {

/// Requires that `failure` names a line of `input` and what is expected there.
inline void RequireNamedLine(const ScriptError& failure, std::string_view file, std::string_view input) {
  const auto lines = 1 + static_cast<std::size_t>(std::count(input.begin(), input.end(), '\n'));
  Require(failure.file == file, "the file is named");
  Require(failure.line >= 1 && failure.line <= lines, "a line of the file is named");
  Require(!failure.expected.empty(), "what is expected there is said");
}

}  // namespace orvenza::fuzz
