#pragma once

#include <array>
#include <cstddef>

#include "core/settings.h"
#include "device/reply.h"

namespace orvenza {

/// The use of a command, which decides what its reply leads to.
enum class CommandUse {
  kLine,        ///< An ordinary line of a ticket.
  kClosure,     ///< A closure or a report, which takes long.
  kOther,       ///< A logo row or a query.
  kCorrection,  ///< A void, or the restart after paper-out.
};
inline constexpr std::size_t kCommandUses = 4;

/// The consequence of a reply.
enum class Verdict {
  kDone,    ///< The command counts as carried out.
  kAsk,     ///< The operator decides; after paper-out, printing is restarted first.
  kVoid,    ///< The receipt is voided at once, without a question.
  kRepeat,  ///< The command is sent again, a few times.
};

/// Replies that a policy may treat differently: the kinds of Reply, two of them divided.
enum class ReplyClass {
  kSilence,
  kRefused,
  kOutOfSequence,  ///< Refused with code 11.
  kPaperOut,
  kLinkError,
  kLinkError2,
  kInvalidLine,
  kGarbled,
  kDone,
};
inline constexpr std::size_t kReplyClasses = 9;

[[nodiscard]] ReplyClass ClassOf(const Reply& reply);

/// Every decision that the register's protocol leaves open, so that the ways of working can be compared on
/// one page.
struct DoubtPolicy {
  /// By CommandUse and ReplyClass.
  std::array<std::array<Verdict, kReplyClasses>, kCommandUses> verdicts;

  /// A wait for a reply that begins shortly before midnight ends only with a reply.
  bool waitsOnAtMidnight;
  /// A status that cannot be read counts as "no receipt open", and a restart after paper-out is followed by
  /// status queries without a limit. Otherwise the operator is asked to try again.
  bool goesOnWithoutStatus;
  /// An open receipt is voided without a question, even if no ticket has opened it.
  bool voidsForeignReceipts;
  /// A form with choices that is closed without one goes on. Otherwise it is shown again.
  bool closedFormGoesOn;
  /// "Print again" is selected when a form with choices opens. Otherwise nothing is: nobody chooses by
  /// pressing Enter.
  bool preselectsReprint;
  /// A closure gives its ticket up if the register is absent right before it. Otherwise it waits.
  bool absenceGivesUpClosure;
  /// After paper-out without an open receipt, the next line follows. Otherwise the line is sent again, or, if
  /// it may have completed something, the operator is asked.
  bool nextLineAfterPaperOut;
  /// "Printed" finishes the file. Otherwise printing goes on behind the receipt that it is about.
  bool printedFinishesFile;
  /// Printing starts again from the first line of the file. Otherwise behind its last complete document.
  bool restartsFromFirstLine;
  /// A ticket that may have completed something is given up when the program ends. Otherwise it stays, and
  /// the operator is asked about it at the next start.
  bool endGivesUp;
  /// A ticket is given up after a failure without an answer of the operator. Otherwise it stays.
  bool failureGivesUp;

  [[nodiscard]] Verdict Of(CommandUse use, const Reply& reply) const;
  [[nodiscard]] bool IsDone(CommandUse use, const Reply& reply) const {
    return Of(use, reply) == Verdict::kDone;
  }
};

/// The way of working unless the settings ask for the other.
extern const DoubtPolicy kContractPolicy;
/// The operator decides wherever something is in doubt: nothing is lost, printed twice or stuck unless
/// somebody chose that.
extern const DoubtPolicy kAskInDoubtPolicy;

/// The policy that the settings ask for.
[[nodiscard]] inline const DoubtPolicy& PolicyOf(const AppSettings& settings) {
  return settings.AskInDoubt ? kAskInDoubtPolicy : kContractPolicy;
}

}  // namespace orvenza
