#pragma once

#include <string>

#include "core/settings.h"
#include "platform/files.h"
#include "tickets/ticket_archive.h"

namespace orvenza {

/// The "File Parser" step: replaces a file that holds several tickets by one file a ticket.
class TicketSplitter {
 public:
  /// Most part files of one split. What is left over stays in the last part, which is split again in its
  /// turn.
  static constexpr int kMostParts = 100;

  TicketSplitter(Files& files, const AppSettings& settings, const TicketArchive& archive)
      : files_(files), settings_(settings), archive_(archive) {}

  /// Splits the file where it holds a second ticket. The parts lie beside it, numbered from 1 behind its
  /// name; empty lines are dropped. Returns whether the file was replaced; false also when "File Parser" is
  /// off. Throws SystemError, and then the file is as it was and no part is left.
  bool SplitTicketFile(const std::string& path);

 private:
  bool HoldsSecondTicket(const std::string& path) const;

  Files& files_;
  const AppSettings& settings_;
  const TicketArchive& archive_;
};

}  // namespace orvenza
