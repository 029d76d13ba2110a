#pragma once

#include <string>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "tickets/piece_reader.h"
#include "tickets/ticket_archive.h"

namespace orvenza {

/// Whether the parts of a file of this name can have names that fit the ticket mask: their number behind the
/// stem, or before the whole name.
bool CanNameParts(const std::string& name, const std::string& mask);

/// The "File Parser" step: replaces a file that holds several tickets by one file a ticket.
class TicketSplitter {
 public:
  /// Most part files of one split. What is left over stays in the last part, which is split again in its
  /// turn.
  static constexpr int kMostParts = 100;

  TicketSplitter(Files& files, const AppSettings& settings, Logs& logs, const TicketArchive& archive)
      : files_(files), settings_(settings), logs_(logs), archive_(archive) {}

  /// Splits the file where it holds a second ticket. The parts lie beside it, numbered from 1: "a.txt"
  /// becomes "a1.txt", or "1a.txt" where the mask fits only that. Empty lines are dropped. Returns whether
  /// the file was replaced; false also when "File Parser" is off, and, with a line in the error log, when the
  /// mask fits neither name: nobody would see such parts. Throws SystemError, and what `between` throws;
  /// then the file is as it was and no part is left.
  bool SplitTicketFile(const std::string& path, const BetweenPieces& between = {});

  /// Whether SplitTicketFile would replace the file; true also for one that cannot be read and may be such.
  bool WouldSplit(const std::string& path, const BetweenPieces& between = {}) const;

 private:
  bool HoldsSecondTicket(const std::string& path, const BetweenPieces& between) const;
  void LogUnnameable(const std::string& path);

  Files& files_;
  const AppSettings& settings_;
  Logs& logs_;
  const TicketArchive& archive_;
};

}  // namespace orvenza
