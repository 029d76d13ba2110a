#pragma once

#include <string>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "tickets/piece_reader.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_witness.h"

namespace orvenza {

/// Whether the parts of a file with this name can have names that match the ticket mask: with their number
/// after the stem, or before the whole name.
bool CanNameParts(const std::string& name, const std::string& mask);

/// The "File Parser" step: replaces a file of several tickets by one file per ticket.
class TicketSplitter {
 public:
  /// Most part files of one split. The rest stays in the last part, which is split again later.
  static constexpr int kMostParts = 100;

  TicketSplitter(Files& files, const AppSettings& settings, Logs& logs, const TicketArchive& archive,
                 TicketWitnesses& witness)
      : files_(files), settings_(settings), logs_(logs), archive_(archive), witness_(witness) {}

  /// Splits the file if it contains a second ticket. The parts are created beside it, numbered from 1:
  /// "a.txt" becomes "a1.txt", or "1a.txt" if only that matches the mask. Empty lines are dropped. Returns
  /// whether the file was replaced. Returns false if "File Parser" is off, and, with a line in the error log,
  /// if neither name matches the mask, since such parts would never be printed. Throws SystemError and the
  /// exceptions of `between`; then the file is unchanged and no part is left.
  [[nodiscard]] bool SplitTicketFile(const std::string& path, const BetweenPieces& between = {});

  /// Whether SplitTicketFile would replace the file; also true for an unreadable one, which may need it.
  [[nodiscard]] bool WouldSplit(const std::string& path, const BetweenPieces& between = {}) const;

 private:
  bool HoldsSecondTicket(const std::string& path, const BetweenPieces& between) const;
  void LogUnnameable(const std::string& path);

  Files& files_;
  const AppSettings& settings_;
  Logs& logs_;
  const TicketArchive& archive_;
  TicketWitnesses& witness_;
};

}  // namespace orvenza
