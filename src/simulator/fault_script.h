#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/register_profile.h"
#include "simulator/script_line.h"

namespace orvenza {

/// What goes wrong.
enum class FaultKind {
  kReply,      ///< `text` is answered instead of carrying out the command.
  kSilence,    ///< The command is lost: not carried out, no event.
  kLinkError,  ///< Link error `number` (1 to 3) instead of carrying out the command.
  kLoseReply,  ///< The command is carried out, its reply is lost: no event.
  kLate,       ///< The reply comes `number` milliseconds later than it should.
  kPaperOut,   ///< `paper` ends before the command is carried out.
  kAbsent,     ///< The next `number` reads find the register absent.
  kPortFails,  ///< The next `number` attempts to open the port fail.
};

/// One fault and when it strikes: with a command, or, when `prefix` is empty, by itself after a time.
struct Fault {
  std::string prefix;                 ///< What the command begins with.
  std::size_t first = 1;              ///< First occurrence that is struck, counted from 1.
  std::size_t times = 1;              ///< How many in a row; kAlways for all from then on.
  std::chrono::milliseconds after{};  ///< Without a prefix: time since the start.
  FaultKind kind = FaultKind::kSilence;
  std::string text;
  int number = 0;
  Paper paper = Paper::kJournal;

  static constexpr std::size_t kAlways = static_cast<std::size_t>(-1);
};

/// How the simulated register and its line behave.
struct FaultScript {
  RegisterProfile profile;
  /// Bits a second: nothing, as the connector configures the line; 0, no time passes on the line.
  std::optional<int> speed;
  std::string paperFile;  ///< Where to write what is printed, as in the script; empty: nowhere.
  std::vector<Fault> faults;
};

/// Reads a script; docs/simulator.md describes its form. `name` is for messages. Throws ScriptError.
FaultScript ParseFaultScript(const std::string& name, std::string_view text);

}  // namespace orvenza
