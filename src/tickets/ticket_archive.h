#pragma once

#include <functional>
#include <map>
#include <string>

#include "core/journals.h"
#include "core/settings.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The extension of archived tickets, whose names are numbers: the last three characters of the ticket mask,
/// or "txt" where those name no extension.
std::string ArchiveExtension(const std::string& mask);

/// Where a work file goes when its processing is over. A file that cannot leave the in-process folder is
/// remembered as settled, so that its receipt is never printed again while the program runs.
class TicketArchive {
 public:
  TicketArchive(Files& files, Folders& folders, const AppSettings& settings, Journals& journals,
                OperatorMessages& messages);

  /// Moves a printed ticket into the historic folder under the next sequence number, or deletes it where no
  /// such folder is configured. A ticket that cannot be archived goes to the abort folder; one that somebody
  /// has removed meanwhile is only named in the error log. Throws ProgramEnd when the historic folder cannot
  /// be made.
  void Archive(const std::string& workFile);

  /// Moves an abandoned ticket into the abort folder, its name followed by ".abort.txt". An older one of that
  /// name gets a number before ".txt"; where it is held open, the newer one does. One that somebody has
  /// removed meanwhile is not spoken of.
  void Abort(const std::string& workFile);

  /// Whether the processing of this file is over although it still lies there.
  bool IsSettled(const std::string& workFile) const { return settled_.contains(workFile); }

  /// Tries once more to move the settled files away, without a word in the journals.
  void RetrySettled();

 private:
  enum class Copied { kNo, kYes };

  bool HasGone(const std::string& workFile) const;
  void LogNotArchived(const std::string& workFile);
  bool Store(const std::string& workFile, const std::function<std::string()>& target);
  std::string NextHistoricPath() const;
  std::string AbortPath(const std::string& workFile);
  void ReportMissingDrive(const std::string& folder);
  void Remove(const std::string& workFile);
  void MoveSettled(const std::string& workFile, Copied& copied);

  Files& files_;
  Folders& folders_;
  const AppSettings& settings_;
  Journals& journals_;
  OperatorMessages& messages_;
  std::map<std::string, Copied> settled_;
};

}  // namespace orvenza
