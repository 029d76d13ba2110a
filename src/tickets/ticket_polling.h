#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/poll_timer.h"
#include "core/repeated_failures.h"
#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "device/register_queries.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tickets/clock_check.h"
#include "tickets/piece_reader.h"
#include "tickets/remembered_tickets.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_listing.h"
#include "tickets/ticket_processor.h"
#include "tickets/ticket_splitter.h"

namespace orvenza {

/// Whether the first line of the host's command file, which exists, asks the program to end: "QUIT", or
/// nothing at all. Throws SystemError.
bool AsksToQuit(const FileReader& files, const std::string& commandFile);

/// The work of each tick of `Timer1`: the host's command file, then at most one ticket, then the clock.
///
/// A ticket that cannot be taken in, split or read is tried again on every tick. For ten ticks it holds up
/// all that come after it; then they pass, but never a closure or a report that is younger.
class TicketPolling {
 public:
  TicketPolling(Files& files, Folders& folders, const AppSettings& settings, Logs& logs, EventLoop& loop,
                PollTimer& timer, DeviceLink& link, RegisterQueries& queries,
                ClockCorrection& clockCorrection, TicketSplitter& splitter, TicketProcessor& processor,
                TicketArchive& archive, RememberedTickets& remembered);

  /// One tick, with polling disabled meanwhile. Throws ProgramEnd when the host requests the end.
  void Tick();

  /// Refreshes `List1`, the new tickets. Throws SystemError; the list is then empty.
  void RefreshNewList();

  /// Refreshes `List2`, the tickets taken in, creating their folder if it is missing. Throws SystemError; the
  /// list is then empty.
  void RefreshInProcessList();

 private:
  /// The result of handling a ticket, which decides how the tick continues.
  enum class Outcome {
    kNext,   ///< Skipped: go on with the next ticket.
    kEnd,    ///< Printed, or must not be overtaken yet: no other ticket.
    kSplit,  ///< Replaced by its parts: read the lists again.
  };

  void QuitIfAsked();
  void Breathe();
  void ForgetGone();

  void ProcessOneTicket();
  Outcome TryAll();
  Outcome TryNew(const std::string& entry);
  Outcome TryTakenIn(const std::string& entry);
  Outcome Print(const std::string& entry, const std::string& file, std::string text);
  TicketListing::SortedList InProcessOrder();
  bool HoldsReport(const std::string& text);
  bool MustWait(const std::string& entry, const std::string& text);
  const std::string* HeldUpBefore(const std::string& entry) const;
  bool Try(const std::string& entry, const char* label, const std::function<void()>& step);
  Outcome HeldUp(const std::string& entry) const;

  void FinishTakingIn(const std::string& entry);
  void TakeIn(const std::string& entry, const std::string& file);
  bool RemoveIfTakenIn(const std::string& entry);
  void RemoveSource(const std::string& entry);
  void CorrectClock();

  Files& files_;
  Folders& folders_;
  const AppSettings& settings_;
  Logs& logs_;
  RepeatedFailures failures_;  ///< The trap for everything that runs on every tick.
  EventLoop& loop_;
  PollTimer& timer_;
  DeviceLink& link_;
  RegisterQueries& queries_;
  ClockCorrection& clockCorrection_;
  TicketSplitter& splitter_;
  TicketProcessor& processor_;
  TicketArchive& archive_;
  RememberedTickets& remembered_;
  TicketListing listing_;
  ClockCheck clockCheck_;
  BetweenPieces breathe_ = [this] { Breathe(); };
  int pieces_ = 0;  // of large files, since the last check for the command file

  TicketListing::SortedList list1_;
  TicketListing::SortedList list2_;
  std::map<std::string, int> heldUp_;  // entries that could not be made ready, with the number of attempts
  std::set<std::string> single_;       // entries taken in that need no splitting
  std::set<std::string> waiting_;      // entries of closures that wait for one of those and have been logged
};

}  // namespace orvenza
