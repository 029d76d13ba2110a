#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "device/error_recovery.h"
#include "device/reply.h"
#include "tickets/document_progress.h"
#include "tickets/remembered_tickets.h"

namespace orvenza {

/// A ticket that is being printed.
struct TicketFacts {
  std::string name;      ///< Name of its file, such as "0042.txt".
  std::string stamp;     ///< Its modification time, "yyyymmddhhmmss".
  std::string workFile;  ///< Path of its file in the in-process folder.
  Fingerprint text;
  bool completes = false;  ///< Some line of it completes something on paper.
};

/// A ticket of a file that is split.
struct SplitPart {
  std::string path;
  Fingerprint text;
};

/// A command on its way to the register.
struct SentCommand {
  std::size_t line = 0;  ///< Number of the ticket's line, from 1.
  std::string command;
  /// It may complete something on paper: a receipt, a document, a cash movement, a closure, a report.
  bool completes = false;
  std::string_view text = {};  ///< The ticket's line, as its bytes. Valid during the call.
  bool opens = false;          ///< A receipt or a document is open after it.
};

/// How the printing of a ticket has ended, before its file is moved.
enum class PrintEnd {
  kPrinted,  ///< The file goes to the archive.
  kGivenUp,  ///< The file goes to the abort folder.
  kLeft,     ///< The file stays, and is printed again later.
};

/// Records each step of a ticket, in the order of these functions. It is never asked, so it cannot
/// change what is printed; it handles its own failures.
class TicketWitness {
 public:
  virtual ~TicketWitness() = default;

  /// A ticket is about to be printed. The register has not been asked yet.
  virtual void Taken(const TicketFacts& ticket) = 0;

  /// The register is ready for the ticket: a first attempt or another one. The lines that `progress` counts
  /// as complete are not sent. `certain`: the register has said that no receipt is open.
  virtual void Begun(const DocumentProgress& progress, bool certain) = 0;

  /// The command is sent next.
  virtual void Sending(const SentCommand& command) = 0;

  /// The command's reply, and how far the ticket is complete by now.
  virtual void Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress) = 0;

  /// A line that is no command, or a row of its logo that was not answered properly. Its command is empty, or
  /// that of the row.
  virtual void Troubled(const SentCommand& /*command*/, const Reply& /*reply*/) {}

  /// The operator was asked and decided.
  virtual void Decided(Decision decision) = 0;

  /// An open receipt was closed by a payment of zero, because it could not be voided.
  virtual void ClosedAutomatically() = 0;

  virtual void Ended(PrintEnd end) = 0;

  /// The file was moved to `path`. Empty: it was removed, or has disappeared.
  virtual void Filed(const std::string& path) = 0;

  /// The file `source` is replaced by `parts`, which are in the in-process folder already. Called again if it
  /// could not be removed then.
  virtual void Splitting(const std::string& /*source*/, const std::vector<SplitPart>& /*parts*/) {}

  /// The file `source` was removed, and only the parts are left.
  virtual void Split(const std::string& /*source*/, const std::vector<SplitPart>& /*parts*/) {}
};

/// Passes everything on to each of the witnesses; there are none unless the settings ask for them.
class TicketWitnesses : public TicketWitness {
 public:
  void Add(TicketWitness& witness) { witnesses_.push_back(&witness); }
  [[nodiscard]] bool Empty() const { return witnesses_.empty(); }

  void Taken(const TicketFacts& ticket) override {
    for (TicketWitness* witness : witnesses_) witness->Taken(ticket);
  }
  void Begun(const DocumentProgress& progress, bool certain) override {
    for (TicketWitness* witness : witnesses_) witness->Begun(progress, certain);
  }
  void Sending(const SentCommand& command) override {
    for (TicketWitness* witness : witnesses_) witness->Sending(command);
  }
  void Replied(const SentCommand& command, const Reply& reply, const DocumentProgress& progress) override {
    for (TicketWitness* witness : witnesses_) witness->Replied(command, reply, progress);
  }
  void Troubled(const SentCommand& command, const Reply& reply) override {
    for (TicketWitness* witness : witnesses_) witness->Troubled(command, reply);
  }
  void Decided(Decision decision) override {
    for (TicketWitness* witness : witnesses_) witness->Decided(decision);
  }
  void ClosedAutomatically() override {
    for (TicketWitness* witness : witnesses_) witness->ClosedAutomatically();
  }
  void Ended(PrintEnd end) override {
    for (TicketWitness* witness : witnesses_) witness->Ended(end);
  }
  void Filed(const std::string& path) override {
    for (TicketWitness* witness : witnesses_) witness->Filed(path);
  }
  void Splitting(const std::string& source, const std::vector<SplitPart>& parts) override {
    for (TicketWitness* witness : witnesses_) witness->Splitting(source, parts);
  }
  void Split(const std::string& source, const std::vector<SplitPart>& parts) override {
    for (TicketWitness* witness : witnesses_) witness->Split(source, parts);
  }

 private:
  std::vector<TicketWitness*> witnesses_;
};

}  // namespace orvenza
