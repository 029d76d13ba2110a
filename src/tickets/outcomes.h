#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/logs.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/evidence.h"
#include "tickets/outcome_files.h"
#include "tickets/receipt_proof.h"
#include "tickets/ticket_witness.h"

namespace orvenza {

/// Tells the host what became of each ticket: a file is written when the ticket is begun, before its first
/// completing command, with each further attempt, and when it has ended. docs/outcomes.md describes the file.
class Outcomes : public TicketWitness {
 public:
  /// `evidence` must be told about each step after the outcomes.
  Outcomes(Files& files, Folders& folders, Logs& logs, const Evidence& evidence)
      : logs_(logs), evidence_(evidence), files_(files, folders, logs) {}

  /// Uses this folder, which ends in "\". `leftovers` are the names of the files that were found in the
  /// in-process folder: their outcomes are continued.
  void Open(const std::string& folder, std::set<std::string> leftovers);

  /// Ends the outcome of a ticket that an earlier run has moved, or somebody else has removed, before its
  /// outcome said so. Where it lies is unknown.
  void Finish(const TicketFacts& ticket);

  /// See OutcomeFiles.
  void SaveLate() { files_.SaveLate(); }

  void Taken(const TicketFacts& ticket) override;
  void Begun(const DocumentProgress& progress, bool certain) override;
  void Sending(const SentCommand& command) override;
  void Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress) override;
  void Troubled(const SentCommand& command, const Reply& reply) override;
  void Decided(Decision decision) override;
  void ClosedAutomatically() override;
  void Ended(PrintEnd end) override;
  void Filed(const std::string& path) override;
  void Splitting(const std::string& source, const std::vector<SplitPart>& parts) override;
  void Split(const std::string& source, const std::vector<SplitPart>& parts) override;

 private:
  /// A ticket that has not ended.
  struct OpenTicket {
    std::shared_ptr<OutcomeFile> file;
    std::optional<ReceiptProof> proof;  ///< Empty for a part that has not been taken yet.
  };

  OpenTicket& Open(const std::string& name, const Fingerprint& text);
  [[nodiscard]] ReceiptProof ProofOf(const TicketFacts& ticket, Outcome& outcome) const;
  [[nodiscard]] std::string Time() const;
  void NoteClosed(OpenTicket& ticket);
  void NoteClosed(const std::shared_ptr<OutcomeFile>& file);

  Logs& logs_;
  const Evidence& evidence_;
  OutcomeFiles files_;
  std::set<std::string> leftovers_;
  std::map<std::string, OpenTicket> open_;  // by name
  std::set<std::string> unreadable_;        // leftovers whose outcome could not be searched for
  std::string name_;                        // of the ticket being printed
  PrintEnd end_ = PrintEnd::kLeft;
  std::shared_ptr<OutcomeFile> last_;  // the ticket that ended last
};

}  // namespace orvenza
