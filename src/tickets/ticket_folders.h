#pragma once

#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/piece_reader.h"
#include "tickets/remembered_tickets.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_listing.h"

namespace orvenza {

/// The folders of new tickets and of tickets taken in: their lists, and moving tickets from one to the other.
class TicketFolders {
 public:
  TicketFolders(Files& files, Folders& folders, const AppSettings& settings, Logs& logs, EventLoop& loop,
                const TicketArchive& archive, RememberedTickets& remembered)
      : files_(files),
        folders_(folders),
        settings_(settings),
        logs_(logs),
        loop_(loop),
        archive_(archive),
        remembered_(remembered),
        listing_(folders, settings, logs, remembered.Path()) {}

  /// Refreshes `List1`, the new tickets. Throws SystemError; the list is then empty.
  void RefreshNewList();

  /// Refreshes `List2`, the tickets taken in, creating their folder if it is missing. Throws SystemError; the
  /// list is then empty.
  void RefreshInProcessList();

  [[nodiscard]] const TicketListing::SortedList& New() const { return list1_; }
  [[nodiscard]] const TicketListing::SortedList& InProcess() const { return list2_; }

  /// Whether either list contains the entry.
  [[nodiscard]] bool Holds(const std::string& entry) const;

  [[nodiscard]] std::string NewPath(const std::string& entry) const;
  [[nodiscard]] std::string InProcessPath(const std::string& entry) const;

  /// See RememberedTickets.
  [[nodiscard]] bool Recall() { return remembered_.Recall(); }

  /// Forgets the sources of tickets taken in that are no longer among the new tickets.
  void ForgetGone() { remembered_.KeepTakenIn(list1_); }

  /// Moves a new ticket in, or copies it and remembers the source if that cannot be removed. Throws
  /// SystemError.
  void TakeIn(const std::string& entry);

  /// Completes taking in a ticket that was copied by a program that ended before it removed or remembered the
  /// source: name, time and text equal the copy's. The source must not be taken for another ticket once the
  /// copy is printed.
  void FinishTakingIn(const std::string& entry);

  /// A ticket that was copied but could not be removed reappears on every tick: only its removal is tried
  /// again, since its copy has been processed. A different text with the same name and time is a new ticket.
  [[nodiscard]] bool RemoveIfTakenIn(const std::string& entry, const BetweenPieces& between);

 private:
  void RemoveSource(const std::string& entry);

  Files& files_;
  Folders& folders_;
  const AppSettings& settings_;
  Logs& logs_;
  EventLoop& loop_;
  const TicketArchive& archive_;
  RememberedTickets& remembered_;
  TicketListing listing_;
  TicketListing::SortedList list1_;
  TicketListing::SortedList list2_;
};

}  // namespace orvenza
