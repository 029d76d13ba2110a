#pragma once

namespace orvenza {

/// Thrown to end the program. Not a std::exception on purpose: the traps that log a failure and carry on
/// must let it pass.
struct ProgramEnd {
  /// True for an orderly end (the main form is unloaded and "End" is logged), false for an end on the spot.
  bool unload = false;
};

}  // namespace orvenza
