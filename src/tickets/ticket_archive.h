#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/remembered_tickets.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The extension of archived tickets, whose names are numbers: the last three characters of the ticket mask,
/// or "txt" where those name no extension.
std::string ArchiveExtension(const std::string& mask);

/// Where a work file goes when its processing is over. A file that cannot leave the in-process folder is
/// remembered as settled, so that its receipt is never printed again, not even by a later start.
class TicketArchive {
 public:
  TicketArchive(Files& files, Folders& folders, const AppSettings& settings, Logs& logs,
                OperatorMessages& messages, RememberedTickets& remembered);

  /// Moves a printed ticket into the historic folder under the next sequence number, or deletes it where no
  /// such folder is configured. A ticket that cannot be archived goes to the abort folder; one that somebody
  /// has removed meanwhile is only named in the error log. Throws ProgramEnd when the historic folder cannot
  /// be made. `text` is the whole file.
  void Archive(const std::string& workFile, std::string_view text);

  /// Moves an abandoned ticket into the abort folder, its name followed by ".abort.txt". An older one of that
  /// name gets a number before ".txt"; where it is held open, the newer one does. One that somebody has
  /// removed meanwhile is not spoken of. `text` is the whole file.
  void Abort(const std::string& workFile, std::string_view text);

  /// Whether the processing of this file is over although it still lies there.
  bool IsSettled(const std::string& workFile) const;

  /// Tries once more to move the settled files away, without a word in the logs. One that has another
  /// text by now is a ticket of its own, and is settled no longer.
  void RetrySettled();

 private:
  bool HasGone(const std::string& workFile) const;
  void LogNotArchived(const std::string& workFile);
  bool Store(const std::string& workFile, std::string_view text, const std::function<std::string()>& target);
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
};

}  // namespace orvenza
