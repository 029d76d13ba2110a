#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/rehearsal/scenario.h"
#include "lab/table/slips.h"

namespace orvenza {

/// A command of a ticket, or another moment of it, at which something goes wrong.
struct TicketStep {
  std::string name;
  /// A scenario (docs/rehearsal.md) without anything that goes wrong at the step itself. Its last file is the
  /// ticket; one before it is an earlier ticket that leaves its receipt open.
  std::string scenario;
  /// What the command begins with, and which one in the scenario it is; empty where the ticket itself goes
  /// wrong.
  std::string command;
  std::size_t occurrence = 1;
};

/// Something that goes wrong with a command.
struct StepFault {
  std::string name;
  /// What the simulated register does, a fault a line, without the words that say with which command.
  std::vector<std::string> effects;
  bool eachTime = false;  ///< It strikes this command whenever it is sent from then on.
  /// What happens while the connector waits for the reply.
  std::optional<EventKind> meanwhile;
  std::chrono::milliseconds delay{};  ///< How long after the command was sent.
};

/// Where a ticket's file is in the end.
enum class FileEnd { kHistoric, kAbort, kWaiting, kGone };

/// What happened to a ticket, from its customer's point of view.
enum class Verdict {
  kFine,           ///< Everything was printed once.
  kInDoubt,        ///< The same, but the file was given up, so that the host cannot tell.
  kTwiceByChoice,  ///< More than that was printed, as the operator chose.
  kLostByChoice,   ///< Less than that was printed, as the operator chose.
  kAsksOn,         ///< The operator is asked for as long as the fault lasts.
  // Forbidden unless a rule explains them:
  kLost,   ///< Part of the ticket was not printed although nobody chose that.
  kTwice,  ///< More than the ticket was printed although nobody chose that.
  kHang,   ///< The connector goes on forever without asking the operator.
};

/// What the operator answered to a dialog that left a choice.
enum class Answer {
  kPrinted,       ///< "Scontrino stampato, continuare".
  kReprint,       ///< "Ristampare lo scontrino ( annullare automaticamente )".
  kGiveUp,        ///< "Abortire la stampa dello scontrino".
  kNoChoice,      ///< The dialog with these three was closed without a choice.
  kCloseReceipt,  ///< Close a receipt that cannot be voided automatically,
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
  std::string reason;            ///< Of a forbidden one: the rule that explains it; empty: none does.
  std::vector<std::string> log;  ///< Lines of the error log, each once, in order, without what varies.
  bool waits = false;            ///< Of one that hangs: it waits for one reply all the time.

  bool operator==(const TicketEnd&) const = default;
};

/// All ends of one fault at one step.
struct FaultCase {
  TicketStep step;
  StepFault fault;
  std::vector<TicketEnd> ends;
};

}  // namespace orvenza
