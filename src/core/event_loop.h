#pragma once

#include <chrono>
#include <optional>

#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/program_end.h"

namespace orvenza {

/// All waits of the connector. Each delivers events. A request to end the program is only noted; the waits
/// without a limit turn it into a ProgramEnd, so that a bounded pause (such as the one between a printed
/// receipt and its archiving) always runs to its end.
class EventLoop {
 public:
  /// Longest sleep of Slice; default of Wait.
  static constexpr std::chrono::milliseconds kSlice{10};

  EventLoop(Clock& clock, EventPump& pump) : clock_(clock), pump_(pump) {}

  /// Notes a request to end the program. The first one counts.
  void RequestEnd(ProgramEnd end);

  bool EndRequested() const { return end_.has_value(); }

  /// Throws ProgramEnd once the end has been requested.
  void CheckEnd() const;

  /// For waits without a limit: CheckEnd, then sleep until an event is delivered or `limit` has passed, then
  /// CheckEnd.
  void Wait(std::chrono::nanoseconds limit = kSlice);

  /// Sleeps until an event arrives, at most one slice. Never throws ProgramEnd.
  void Slice() { pump_.WaitForEvent(kSlice); }

  /// Called before Slice by a wait that ends only with an event or at the uptime `until`.
  void SkipIdle(std::chrono::nanoseconds until) { pump_.SkipIdle(kSlice, until); }

  /// Delivers the waiting events without sleeping. Never throws ProgramEnd.
  void Dispatch() { pump_.Dispatch(); }

  /// Waits the whole `duration`. Never throws ProgramEnd.
  void Pause(std::chrono::milliseconds duration);

 private:
  Clock& clock_;
  EventPump& pump_;
  std::optional<ProgramEnd> end_;
};

}  // namespace orvenza
