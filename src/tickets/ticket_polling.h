#pragma once

#include "core/poll_timer.h"
#include "core/repeated_failures.h"
#include "tickets/clock_check.h"
#include "tickets/command_file.h"
#include "tickets/ticket_folders.h"
#include "tickets/ticket_queue.h"

namespace orvenza {

/// The work of each tick of `Timer1`: the host's command file, then at most one ticket, then the clock.
class TicketPolling {
 public:
  /// `failures` is the trap of the ticks.
  TicketPolling(PollTimer& timer, RepeatedFailures& failures, CommandFile& commandFile,
                TicketFolders& folders, TicketQueue& queue, ClockCheck& clockCheck)
      : timer_(timer),
        failures_(failures),
        commandFile_(commandFile),
        folders_(folders),
        queue_(queue),
        clockCheck_(clockCheck) {}

  /// One tick, with polling disabled meanwhile. Throws ProgramEnd when the host requests the end.
  void Tick();

 private:
  PollTimer& timer_;
  RepeatedFailures& failures_;
  CommandFile& commandFile_;
  TicketFolders& folders_;
  TicketQueue& queue_;
  ClockCheck& clockCheck_;
};

}  // namespace orvenza
