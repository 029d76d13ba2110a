#include "tickets/receipt_proof.h"

#include <algorithm>
#include <utility>

#include "core/text.h"

namespace orvenza {
namespace {

OutcomeReason ReasonOf(const SentCommand& command, const Reply& reply) {
  using Kind = Reply::Kind;
  if (reply.Is(Kind::kInvalidLine)) return OutcomeReason::kInvalidLine;
  if (reply.Is(Kind::kPaperOut)) return OutcomeReason::kPaperOut;
  if (!reply.Is(Kind::kRefused)) return OutcomeReason::kNoAnswer;
  return reply.IsReceiptTooLong() && !command.completes ? OutcomeReason::kDivided : OutcomeReason::kRefused;
}

}  // namespace

void ReceiptProof::MayHaveCompletedEarlier(OutcomeReason reason) {
  completed_ = true;
  Against(reason == OutcomeReason::kNothing ? OutcomeReason::kInterrupted : reason);
}

void ReceiptProof::Begun(const DocumentProgress& progress, bool certain) {
  const std::size_t complete = progress.Complete();
  if (begun_ && (completedLine_ > complete || underWay_)) Against(OutcomeReason::kPrintedAgain);
  if (flawLine_ != 0 && flawLine_ <= complete) Against(flaw_);
  if (complete > known_) Against(begun_ ? OutcomeReason::kOperatorPrinted : OutcomeReason::kInterrupted);
  completed_ = completed_ || underWay_;
  begun_ = true;
  known_ = complete;
  completedLine_ = 0;
  underWay_ = false;
  flawLine_ = 0;
  decision_.reset();
  troubled_ = false;
  if (!certain) Flaw(complete + 1, OutcomeReason::kStatusUnknown);
}

void ReceiptProof::Sending(const SentCommand& command) {
  if (!command.completes) return;
  completes_ = true;
  underWay_ = true;
}

void ReceiptProof::Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress) {
  known_ = std::max(progress.Complete(), progress.Paid());
  if (command.completes) {
    underWay_ = false;
    if (!reply.IsRefusal()) {
      completed_ = true;
      completedLine_ = command.line;
    }
  }
  if (!reply.Is(Reply::Kind::kDone)) NoteTrouble(command, reply);
}

void ReceiptProof::Troubled(const SentCommand& command, const Reply& reply) { NoteTrouble(command, reply); }

void ReceiptProof::NoteTrouble(const SentCommand& command, const Reply& reply) {
  Flaw(command.line, ReasonOf(command, reply));
  if (std::exchange(troubled_, true)) return;
  trouble_ = {command.line, FromWindows1252(command.text), FromWindows1252(command.command),
              FromWindows1252(command.command.empty() ? std::string() : reply.Text())};
}

void ReceiptProof::Decided(Decision decision) {
  decision_ = decision;
  if (decision == Decision::kPrinted) Against(OutcomeReason::kOperatorPrinted);
}

void ReceiptProof::ClosedAutomatically() {
  completes_ = true;
  completed_ = true;
  Against(OutcomeReason::kClosedAutomatically);
}

ReceiptState ReceiptProof::SoFar() const {
  if (!completes_) return ReceiptState::kNone;
  return MayHaveCompleted() ? ReceiptState::kDoubtful : ReceiptState::kNo;
}

ReceiptState ReceiptProof::AtEnd(PrintEnd end) const {
  const bool whole = begun_ && end == PrintEnd::kPrinted && !against_ && flawLine_ == 0 && !underWay_;
  return whole && completed_ ? ReceiptState::kYes : SoFar();
}

OutcomeReason ReceiptProof::ReasonAtEnd(PrintEnd end) const {
  const bool flawed = flawLine_ != 0;
  if (end == PrintEnd::kGivenUp) {
    if (decision_ == Decision::kAbort) return OutcomeReason::kOperatorGaveUp;
    if (flawed) return flaw_;
    if (underWay_) return OutcomeReason::kNoAnswer;
    return against_.value_or(OutcomeReason::kFailed);
  }
  if (decision_ == Decision::kPrinted) return OutcomeReason::kOperatorPrinted;
  if (against_) return *against_;
  return flawed ? flaw_ : OutcomeReason::kPrinted;
}

/// The first flaw counts, but a division only if nothing else went wrong.
void ReceiptProof::Flaw(std::size_t line, OutcomeReason reason) {
  const bool again = flawLine_ == line && reason == OutcomeReason::kDivided;
  if (flawLine_ == 0 || flaw_ == OutcomeReason::kDivided) flaw_ = again ? OutcomeReason::kRefused : reason;
  if (flawLine_ == 0) flawLine_ = line;
}

void ReceiptProof::Against(OutcomeReason reason) {
  if (!against_) against_ = reason;
}

}  // namespace orvenza
