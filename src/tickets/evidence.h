#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "core/logs.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/document_progress.h"
#include "tickets/ticket_witness.h"

namespace orvenza {

/// How far the printing of a ticket has come, as far as this is known.
struct Standing {
  enum class State {
    kNew,       ///< Nothing of it has been sent.
    kBegun,     ///< Lines were sent; none of them can have completed anything beyond `progress`.
    kUnderWay,  ///< The command of `line` may have completed something; its reply is missing.
    kGivenUp,   ///< It was given up; its file had not been moved yet.
    kUnknown,   ///< Nothing is known: the evidence is missing, damaged or about another text.
  };
  State state = State::kNew;
  DocumentProgress progress;
  std::size_t line = 0;  ///< From 1; 0 if no command is under way.

  bool operator==(const Standing&) const = default;
};

/// The ticket that was printed last, and how far it had come.
struct EvidenceRecord {
  std::optional<Standing> standing;  ///< Empty once the ticket's file has been moved.
  TicketFacts ticket;                ///< Without its path.
  std::string command;               ///< The command under way.
  bool receiptOpen = false;          ///< The ticket may have left its receipt open.
  std::set<std::string> unknown;     ///< Names of files in the in-process folder of which nothing is known.
};

/// The record as the text of a file, and back. A text that was cut or changed anywhere gives nothing.
[[nodiscard]] std::string EvidenceText(const EvidenceRecord& record);
[[nodiscard]] std::optional<EvidenceRecord> ParseEvidence(std::string_view text);

/// What the record says about a ticket. Of another text under the same name nothing is known; a ticket that
/// it does not name is new.
[[nodiscard]] Standing StandingOf(const EvidenceRecord& record, const TicketFacts& ticket);

/// Keeps on the disk how far the ticket being printed has come, so that the next start knows it after a power
/// cut. Written before and after each command that may complete something; on return it is on the disk. If it
/// cannot be written, the first of consecutive failures goes to the error log, and an outdated file is
/// removed.
class Evidence : public TicketWitness {
 public:
  /// `programFolder` is given without a trailing "\".
  Evidence(Files& files, Logs& logs, const std::string& programFolder);

  /// Reads what the last run left behind. `leftovers` are the names of the files that were found in the
  /// in-process folder; without evidence their state is unknown. A ticket that is not among them has been
  /// moved; if they could not be listed, that is unknown, too.
  /// Returns the ticket that was being printed if it has gone from there; otherwise nothing.
  std::optional<TicketFacts> Recall(const std::optional<std::set<std::string>>& leftovers);

  /// Removes the file, because from now on nobody keeps it up to date.
  void Discard();

  [[nodiscard]] Standing Of(const TicketFacts& ticket) const;

  /// Whether a receipt that is open now may come from a ticket.
  [[nodiscard]] bool ReceiptMayBeOurs() const;

  void Taken(const TicketFacts& ticket) override;
  void Begun(const DocumentProgress& progress, bool certain) override;
  void Sending(const SentCommand& command) override;
  void Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress) override;
  void Decided(Decision decision) override;
  void ClosedAutomatically() override {}
  void Ended(PrintEnd end) override;
  void Filed(const std::string& path) override;

 private:
  void Save();
  void RemoveOutdated();

  Files& files_;
  Logs& logs_;
  std::string path_;
  EvidenceRecord record_;
  TicketFacts taken_;     // the ticket being printed
  bool failing_ = false;  // the current failure is in the error log
};

/// Path of that file. `programFolder` is given without a trailing "\".
[[nodiscard]] std::string EvidencePath(const std::string& programFolder);

}  // namespace orvenza
