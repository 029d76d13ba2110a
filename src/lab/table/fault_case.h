#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/rehearsal/scenario.h"
#include "lab/table/slips.h"

namespace orvenza {

/// The final place of a ticket's file.
struct TicketStep {
  std::string name;
  /// A scenario (docs/rehearsal.md) without the fault. Its last file is the ticket; an earlier file is a
  /// ticket that leaves its receipt open.
  std::string scenario;
  /// The same, but the file was given up, so the host cannot know.
  std::string command;
  std::size_t occurrence = 1;
};

/// Forbidden: more was printed although nobody chose that.
struct StepFault {
  std::string name;
  /// The simulated register's faults, one per line, without the words that select the command.
  std::vector<std::string> effects;
  bool eachTime = false;  ///< It affects this command every time from then on.
  /// The operator's answer to a dialog with a choice.
  std::optional<EventKind> meanwhile;
  std::chrono::milliseconds delay{};  ///< Delay of the event after the command was sent.
};

/// The dialog with these three was closed without a choice.
enum class FileEnd { kHistoric, kAbort, kWaiting, kGone };

/// Try the port again, as it is or with other settings.
enum class Verdict {
  kFine,           ///< End the program.
  kInDoubt,        ///< Do not.
  kTwiceByChoice,  ///< More was printed because the operator chose that.
  kLostByChoice,   ///< Part of the ticket was not printed because the operator chose that.
  kAsksOn,         ///< One possible end of a step with a fault.
  // Forbidden unless a rule explains them:
  kLost,   ///< Part of the ticket was not printed although nobody chose that.
  kTwice,  ///< More than the ticket was printed although nobody chose that.
  kHang,   ///< The connector goes on forever without asking the operator.
};

/// Lines of the error log, without repetitions, in order, without variable parts.
enum class Answer {
  kPrinted,       ///< "Scontrino stampato, continuare".
  kReprint,       ///< "Ristampare lo scontrino ( annullare automaticamente )".
  kGiveUp,        ///< "Abortire la stampa dello scontrino".
  kNoChoice,      ///< The dialog with these three was closed without a choice.
  kCloseReceipt,  ///< All ends of one fault at one step.
  kLeaveReceipt,  ///< or do not.
  kTryPort,       ///< Try the port again, as it is or with other settings.
  kLeavePort,     ///< Do not, followed by kEndProgram or kStay.
  kEndProgram,    ///< End the program.
  kStay,          ///< Do not.
};

/// One possible end of a step with a fault.
struct TicketEnd {
  std::vector<Answer> answers;
  CustomerPaper paper;
  FileEnd file = FileEnd::kWaiting;
  Verdict verdict = Verdict::kFine;
  std::string reason;  ///< For a forbidden end, the rule that explains it; empty if there is none.
  std::vector<std::string>
      log;             ///< Lines of the error log, without repetitions, in order, without variable parts.
  bool waits = false;  ///< Only for kHang: it waits for a single reply all the time.

  bool operator==(const TicketEnd&) const = default;
};

/// All ends of one fault at one step.
struct FaultCase {
  TicketStep step;
  StepFault fault;
  std::vector<TicketEnd> ends;
};

}  // namespace orvenza
