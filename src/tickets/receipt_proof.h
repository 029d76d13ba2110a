#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "device/error_recovery.h"
#include "device/reply.h"
#include "tickets/document_progress.h"
#include "tickets/outcome.h"
#include "tickets/ticket_witness.h"

namespace orvenza {

/// A line that was not answered properly.
struct LineTrouble {
  std::size_t line = 0;
  std::string lineText;  ///< In UTF-8, like the others.
  std::string command;
  std::string reply;
};

/// Collects what is known about the paper of one ticket, and says what may be claimed about it. In both ways
/// of working the same facts lead to the same claim:
///
/// | Fact                                                                        | yes    | no     |
/// |-----------------------------------------------------------------------------|--------|--------|
/// | all lines answered with their own code, the register without open receipt   |        |        |
/// | before the first of them                                                    | yes    | never  |
/// | a completing command answered with its own code, and anything against "yes" | never  | never  |
/// | a completing command without answer, with a garbled one, a link error or    |        |        |
/// | paper-out                                                                   | never  | never  |
/// | a completing command refused: it was not executed                           | never* | yes    |
/// | no completing command sent                                                  | never* | yes    |
/// | another line refused, unanswered, garbled, paper-out, left out; a logo row  | never* | yes    |
/// | a receipt of this ticket closed by a payment of zero                        | never  | never  |
/// | the register did not say whether a receipt was open                         | never* | yes    |
/// | "printed" chosen by the operator                                            | never  | yes    |
/// | a completing command in an earlier attempt that is printed once more        | never  | never  |
/// | a completing command in an earlier run, or nothing known about that run     | never  | never  |
///
/// "yes" or "no" in a column: this fact allows that claim. "never": it forbids it for good. "never*": it
/// forbids it for this attempt only; what the next attempt prints from the start counts anew. A claim that a
/// single fact forbids is not made; if neither is left, the receipt is doubtful.
class ReceiptProof {
 public:
  /// `completes`: some line of the ticket completes something on paper.
  explicit ReceiptProof(bool completes) : completes_(completes) {}

  /// An earlier run may have sent a completing command of this ticket. `reason`: what that run noted; may be
  /// kNothing.
  void MayHaveCompletedEarlier(OutcomeReason reason);

  void Begun(const DocumentProgress& progress, bool certain);
  void Sending(const SentCommand& command);
  void Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress);
  void Troubled(const SentCommand& command, const Reply& reply);
  void Decided(Decision decision);
  void ClosedAutomatically();

  /// The claim before the end: whatever happens next, it stays true for what was sent so far.
  [[nodiscard]] ReceiptState SoFar() const;

  [[nodiscard]] ReceiptState AtEnd(PrintEnd end) const;
  [[nodiscard]] OutcomeReason ReasonAtEnd(PrintEnd end) const;

  /// The first trouble of the last attempt that had any.
  [[nodiscard]] const std::optional<LineTrouble>& Trouble() const { return trouble_; }

 private:
  void Flaw(std::size_t line, OutcomeReason reason);
  void NoteTrouble(const SentCommand& command, const Reply& reply);
  void Against(OutcomeReason reason);
  [[nodiscard]] bool MayHaveCompleted() const { return completed_ || underWay_; }

  bool completes_;
  bool begun_ = false;
  bool completed_ = false;                // a completing command may have been executed, at any time
  std::optional<OutcomeReason> against_;  // what forbids "yes" for good; the first counts

  // The current attempt.
  std::size_t known_ = 0;          // lines that are complete
  std::size_t completedLine_ = 0;  // of the last command that may have completed something
  bool underWay_ = false;          // a completing command has no reply yet
  std::size_t flawLine_ = 0;       // the first line that forbids "yes"; 0 for none
  OutcomeReason flaw_ = OutcomeReason::kNothing;
  std::optional<Decision> decision_;  // the last one
  bool troubled_ = false;             // trouble_ belongs to it

  std::optional<LineTrouble> trouble_;
};

}  // namespace orvenza
