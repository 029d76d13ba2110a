#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

#include "core/logs.h"
#include "core/repeated_failures.h"
#include "core/settings.h"
#include "platform/files.h"
#include "tickets/command_file.h"
#include "tickets/piece_reader.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_folders.h"
#include "tickets/ticket_listing.h"
#include "tickets/ticket_processor.h"
#include "tickets/ticket_splitter.h"

namespace orvenza {

/// Chooses the next ticket to print and makes it ready.
///
/// A ticket that cannot be taken in, split or read is tried again on every tick. For ten ticks it holds up
/// all later ones; then they may pass, except a later closure or report.
class TicketQueue {
 public:
  /// `failures` is the trap of the ticks.
  TicketQueue(Files& files, const AppSettings& settings, Logs& logs, RepeatedFailures& failures,
              CommandFile& commandFile, TicketFolders& folders, TicketSplitter& splitter,
              TicketProcessor& processor, TicketArchive& archive);

  /// Forgets the tickets that are no longer in either folder. Both lists must have been read.
  void ForgetGone();

  /// Prints at most one of the listed tickets. Throws SystemError and ProgramEnd.
  void ProcessOneTicket();

 private:
  /// The result of handling a ticket, which decides how the tick continues.
  enum class Outcome {
    kNext,   ///< Skipped: go on with the next ticket.
    kEnd,    ///< Printed, or must not be overtaken yet: no other ticket.
    kSplit,  ///< Replaced by its parts: read the lists again.
  };

  Outcome TryAll();
  Outcome TryNew(const std::string& entry);
  Outcome TryTakenIn(const std::string& entry);
  Outcome Print(const std::string& entry, const std::string& file, std::string text);
  TicketListing::SortedList InProcessOrder();
  bool HoldsReport(const std::string& text);
  [[nodiscard]] bool MustWait(const std::string& entry, const std::string& text);
  const std::string* HeldUpBefore(const std::string& entry) const;
  [[nodiscard]] bool Try(const std::string& entry, const char* label, const std::function<void()>& step);
  Outcome HeldUp(const std::string& entry) const;

  Files& files_;
  const AppSettings& settings_;
  Logs& logs_;
  RepeatedFailures& failures_;
  TicketFolders& folders_;
  TicketSplitter& splitter_;
  TicketProcessor& processor_;
  TicketArchive& archive_;
  BetweenPieces breathe_;

  std::map<std::string, int> heldUp_;  // entries that could not be made ready, with the number of attempts
  std::set<std::string> single_;       // entries taken in that need no splitting
  std::set<std::string> waiting_;      // entries of closures that wait for one of those and have been logged
};

}  // namespace orvenza
