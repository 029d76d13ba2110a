#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/rehearsal/scenario.h"
#include "lab/table/slips.h"

namespace orvenza {

/// Who decides where the register's protocol leaves something open (device/doubt_policy.h).
enum class WayOfWorking {
  kContract,    ///< The connector.
  kAskInDoubt,  ///< The operator: `[Safety] AskInDoubt=1`.
};

/// A moment in the life of a ticket at which a fault can strike.
struct TicketStep {
  std::string name;
  /// A scenario (docs/rehearsal.md) without the fault. Its last file is the ticket; an earlier file is a
  /// ticket that leaves its receipt open.
  std::string scenario;
  std::string command;         ///< The beginning of the command that is struck; empty if none is.
  std::size_t occurrence = 1;  ///< Which of the commands that begin like this, from 1.
  bool filing = false;         ///< Instead of a command: the ticket's file is moved when it is finished.
};

/// What goes wrong at a step.
struct StepFault {
  std::string name;
  /// The simulated register's faults, one per line, without the words that select the command.
  std::vector<std::string> effects;
  bool eachTime = false;  ///< It affects this command every time from then on.
  /// What happens while the connector waits for the reply; empty if nothing.
  std::optional<EventKind> meanwhile;
  std::chrono::milliseconds delay{};  ///< Delay of the event after the command was sent.
  /// Cuts of the power at the step's command. Where the file is moved, change 0 is the one before that.
  std::vector<PowerCut> cuts = {};
};

/// The final place of a ticket's file.
enum class FileEnd { kHistoric, kAbort, kWaiting, kGone };

/// The kinds of ends.
enum class Verdict {
  kFine,           ///< The ticket was printed once, and its file is in the historic folder.
  kInDoubt,        ///< The same, but the file was given up, so the host cannot know.
  kTwiceByChoice,  ///< More was printed because the operator chose that.
  kLostByChoice,   ///< Part of the ticket was not printed because the operator chose that.
  kAsksOn,         ///< The operator is asked again and again as long as the fault lasts.
  // Forbidden unless a rule explains them:
  kLost,   ///< Part of the ticket was not printed although nobody chose that.
  kTwice,  ///< More than the ticket was printed although nobody chose that.
  kHang,   ///< The connector goes on forever without asking the operator.
};

/// What the ticket's outcome (docs/outcomes.md) says of the receipt.
enum class Claim {
  kYes,
  kNo,
  kDoubtful,
  kNone,
  kOpen,  ///< The ticket is not done.
};

/// The operator's answer to a dialog with a choice.
enum class Answer {
  kPrinted,       ///< "Scontrino stampato, continuare".
  kReprint,       ///< "Ristampare lo scontrino ( annullare automaticamente )".
  kGiveUp,        ///< "Abortire la stampa dello scontrino".
  kNoChoice,      ///< The dialog with these three was closed without a choice.
  kCloseReceipt,  ///< Have a receipt closed that cannot be voided,
  kLeaveReceipt,  ///< or do not.
  kVoidForeign,   ///< Have a receipt voided that the connector has not opened,
  kKeepForeign,   ///< or do not.
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
  std::vector<Claim> claims = {};  ///< For each of `ends`; if ways of one end differ, a false one.
};

}  // namespace orvenza
