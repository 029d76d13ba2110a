#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tickets/remembered_tickets.h"

namespace orvenza {

/// What may be said about a ticket's paper.
enum class ReceiptState {
  kYes,       ///< It came out exactly once, and whole.
  kNo,        ///< Nothing complete came out.
  kDoubtful,  ///< Neither is certain.
  kNone,      ///< Nothing in the ticket completes anything on paper.
};

/// Why a ticket ended as it did.
enum class OutcomeReason {
  kNothing,              ///< It has not ended.
  kPrinted,              ///< Every line was answered properly.
  kDivided,              ///< The same, but the receipt was too long and came out in several parts.
  kOperatorPrinted,      ///< The operator said that it is printed.
  kOperatorGaveUp,       ///< The operator gave it up.
  kPrintedAgain,         ///< It was printed again after something of it may have come out.
  kRefused,              ///< The register refused a command.
  kInvalidLine,          ///< A line is no command, and was left out.
  kNoAnswer,             ///< A command was not answered, or not properly.
  kPaperOut,             ///< The paper ran out, and printing went on.
  kStatusUnknown,        ///< The register did not say whether a receipt was open.
  kClosedAutomatically,  ///< An open receipt was closed by a payment of zero.
  kInterrupted,          ///< The program or the PC stopped while it was printed.
  kFailed,               ///< Given up for another reason, such as the end of the program.
  kSplit,                ///< The file was replaced by its parts.
};

/// The result of one ticket, as the host reads it.
struct Outcome {
  std::string ticket;  ///< Name of its file.
  Fingerprint text;
  bool done = false;
  ReceiptState receipt = ReceiptState::kNo;
  OutcomeReason reason = OutcomeReason::kNothing;
  std::string filed;    ///< Where the file lies now; empty when it was removed, or is still being printed.
  std::string started;  ///< In the form "2026-11-16 09:00:00", like `ended`.
  std::string ended;
  std::size_t attempts = 0;
  // The line that decided, its command and the reply; a number of 0 if there is none.
  std::size_t line = 0;
  std::string lineText;
  std::string command;
  std::string reply;
  std::string answers;  ///< The operator's decisions, separated by commas.
  std::string source;   ///< The file that it was split from; empty for none.
  std::size_t part = 0;
  std::size_t parts = 0;  ///< Number of files that it was split into.

  bool operator==(const Outcome&) const = default;
};

/// The word of a reason in the file of an outcome: "operator-gave-up".
[[nodiscard]] std::string WordOf(OutcomeReason reason);

/// The outcome as the text of its file, in UTF-8. Control characters, "<", and blanks and quotes at the ends
/// of a value become their number in angle brackets, such as "<7F>"; values have at most 1000 characters.
[[nodiscard]] std::string OutcomeText(const Outcome& outcome);

/// Reads such a text; empty if it is none.
[[nodiscard]] std::optional<Outcome> ParseOutcome(std::string_view text);

}  // namespace orvenza
