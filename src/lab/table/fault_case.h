#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal.h"
#include "lab/table/case_grid.h"
#include "lab/table/slips.h"

namespace orvenza {

/// Where a ticket's file is in the end.
enum class FileEnd { kHistoric, kAbort, kWaiting, kGone };

/// What became of a ticket, as its customer sees it.
enum class Verdict {
  kFine,           ///< Everything was printed once.
  kInDoubt,        ///< The same, but the file was given up, so that the host cannot tell.
  kTwiceByChoice,  ///< More than that was printed, as the operator chose.
  kLostByChoice,   ///< Less than that was printed, as the operator chose.
  kAsksOn,         ///< The operator is asked for as long as the fault lasts.
  kLost,           ///< The forbidden ones: less was printed, and nobody chose so;
  kTwice,          ///< more was printed, and nobody chose so;
  kHang,           ///< the connector goes on for ever without asking anybody.
};

bool IsForbidden(Verdict verdict);

/// What the operator answered to a dialog that left a choice.
enum class Answer {
  kPrinted,       ///< "Scontrino stampato, continuare".
  kReprint,       ///< "Ristampare lo scontrino ( annullare automaticamente )".
  kGiveUp,        ///< "Abortire la stampa dello scontrino".
  kNoChoice,      ///< The form with these three was closed without a choice.
  kCloseReceipt,  ///< That a receipt which cannot be voided is to be closed automatically,
  kLeaveReceipt,  ///< or not to be.
  kTryPort,       ///< That the port is to be tried again, as it is or configured.
  kLeavePort,     ///< That it is not, followed by kEndProgram or kStay.
  kEndProgram,    ///< That the program is to end.
  kStay,          ///< That it is not.
};

/// One way in which a step that goes wrong may end.
struct TicketEnd {
  std::vector<Answer> answers;
  CustomerPaper paper;
  FileEnd file = FileEnd::kWaiting;
  Verdict verdict = Verdict::kFine;
  std::string reason;            ///< Of a forbidden one: what prescribes it; empty: nothing does.
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

/// Dialogs with a choice whose every answer is tried; later ones are answered in the way that goes forward.
inline constexpr std::size_t kCaseDepth = 2;

/// Tries every answer of the operator, systematically.
FaultCase PlayCase(const TicketStep& step, const StepFault& fault, std::size_t depth = kCaseDepth,
                   TableHour hour = TableHour::kDay);

/// Plays steps with each of their faults, in order. `progress` is told after each how many of how many are
/// done; null: nobody.
std::vector<FaultCase> PlayCases(const std::vector<TicketStep>& steps, TableExtent extent, TableHour hour,
                                 const std::function<void(std::size_t done, std::size_t all)>& progress = {});

}  // namespace orvenza
