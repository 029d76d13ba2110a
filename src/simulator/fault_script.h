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

/// The kind of failure.
enum class FaultKind {
  kReply,      ///< The reply is `text`; the command is not executed.
  kSilence,    ///< The command is lost: not executed, no event.
  kLinkError,  ///< Link error `number` (1 to 3) instead of executing the command.
  kLoseReply,  ///< The command is executed, but its reply is lost: no event.
  kLate,       ///< The reply is delayed by `number` milliseconds.
  kPaperOut,   ///< `paper` runs out before the command is executed.
  kAbsent,     ///< The next `number` queries report the register as absent.
  kPortFails,  ///< The next `number` attempts to open the port fail.
  kKeyedIn,    ///< Somebody keys an item in at the register, which opens a receipt.
  kPaidThere,  ///< Somebody has that receipt paid at the register.
  kPower,      ///< The register is switched off, or `on` again.
  kCable,      ///< Its cable is pulled out, or put in (`on`).
  kKey,        ///< Its key is turned away, or to the position for selling (`on`).
  kPaper,      ///< `paper` is taken out, and stays out until new paper is put in (`on`).
  kNone,       ///< Ends a fault that awaits the next command, or strikes every one.
};

/// One fault and its trigger: a command or, if `prefix` is empty, a time. A fault of the exchange (the first
/// five kinds) without a prefix awaits the next command from then on or, with kAlways, strikes every one.
struct Fault {
  std::string prefix;                 ///< The start of the command.
  std::size_t first = 1;              ///< First affected occurrence, counted from 1.
  std::size_t times = 1;              ///< Number of consecutive occurrences; kAlways means all from then on.
  std::chrono::milliseconds after{};  ///< Without a prefix: time since the start.
  FaultKind kind = FaultKind::kSilence;
  std::string text;
  int number = 0;
  Paper paper = Paper::kJournal;
  bool on = false;  ///< The position of a switch.

  bool operator==(const Fault&) const = default;

  static constexpr std::size_t kAlways = static_cast<std::size_t>(-1);
};

/// The behaviour of the simulated register and its line.
struct FaultScript {
  RegisterProfile profile;
  /// Bits per second; empty: as the connector configures the line; 0: transmission takes no time.
  std::optional<int> speed;
  int pace = 1;           ///< Everything that the program waits for comes this many times as fast.
  std::string paperFile;  ///< File for the printed lines, as in the script; empty: none.
  std::vector<Fault> faults;
  std::vector<std::string> lines;  ///< The lines that were read, without "paper" and "pace".
};

/// Parses a script; docs/simulator.md describes its format. `name` is for messages. Throws ScriptError with
/// all mistakes.
FaultScript ParseFaultScript(const std::string& name, std::string_view text);

}  // namespace orvenza
