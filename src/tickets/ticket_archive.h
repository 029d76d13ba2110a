#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/remembered_tickets.h"
#include "tickets/ticket_witness.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The extension of archived tickets, whose names are numbers: the last three characters of the ticket mask,
/// or "txt" if they are not an extension.
std::string ArchiveExtension(const std::string& mask);

/// The name of a ticket in the abort folder.
std::string AbortName(const std::string& ticket);

/// Puts a work file into its final place after processing. A file that cannot leave the in-process folder is
/// remembered as settled, so that its receipt is never printed again, even after a restart.
class TicketArchive {
 public:
  TicketArchive(Files& files, Folders& folders, const AppSettings& settings, Logs& logs,
                OperatorMessages& messages, RememberedTickets& remembered, TicketWitness& witness);

  /// Moves a printed ticket into the historic folder under the next sequence number, or deletes it if there
  /// is no such folder. A ticket that cannot be archived goes to the abort folder; one that has disappeared
  /// is only reported in the error log. Throws ProgramEnd when the historic folder cannot be created. `text`
  /// is the whole file.
  void Archive(const std::string& workFile, std::string_view text);

  /// Moves a ticket that was given up into the abort folder, adding ".abort.txt" to its name. An older file
  /// of that name gets a number before ".txt"; if it is held open, the newer one gets it. A file that has
  /// disappeared is ignored. `text` is the whole file.
  void Abort(const std::string& workFile, std::string_view text);

  /// Whether this file has been processed although it still exists.
  [[nodiscard]] bool IsSettled(const std::string& workFile) const;

  /// Tries again to move the settled files away, without logging. A file with a new text is a ticket of its
  /// own, and no longer settled.
  void RetrySettled();

 private:
  bool HasGone(const std::string& workFile) const;
  void LogNotArchived(const std::string& workFile);
  [[nodiscard]] bool Store(const std::string& workFile, std::string_view text,
                           const std::function<std::string()>& target);
  std::string NextHistoricPath() const;
  std::string AbortPath(const std::string& workFile);
  void ReportMissingDrive(const std::string& folder);
  void Remove(const std::string& workFile, std::string_view text);
  void Settle(const std::string& workFile, std::string_view text, bool copied);
  void MoveSettled(const std::string& workFile, RememberedFiles::Settled file);

  Files& files_;
  Folders& folders_;
  const AppSettings& settings_;
  Logs& logs_;
  OperatorMessages& messages_;
  RememberedTickets& remembered_;
  TicketWitness& witness_;
};

}  // namespace orvenza
