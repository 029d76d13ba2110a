#pragma once

#include <chrono>
#include <optional>

#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/program_end.h"

namespace orvenza {

/// Every wait of the connector. Events are delivered during each of them. A wish to end the program is only
/// noted by whoever has it; the waits that may last without limit turn it into a ProgramEnd, so that a
/// bounded pause (the one between a printed receipt and its archiving, say) always runs to its end.
class EventLoop {
 public:
  /// Longest sleep of Slice, and of Wait unless told otherwise.
  static constexpr std::chrono::milliseconds kSlice{10};

  EventLoop(Clock& clock, EventPump& pump) : clock_(clock), pump_(pump) {}

  /// Notes the wish to end the program. The first wish counts.
  void RequestEnd(ProgramEnd end);

  bool EndRequested() const { return end_.has_value(); }

  /// Throws ProgramEnd once the end has been asked for.
  void CheckEnd() const;

  /// For waits without limit: CheckEnd, sleep at most `limit` or until an event was delivered, CheckEnd.
  void Wait(std::chrono::nanoseconds limit = kSlice);

  /// Sleeps at most one slice, less when an event arrives. Never throws ProgramEnd.
  void Slice() { pump_.WaitForEvent(kSlice); }

  /// To be called before Slice by a wait that only an event or the uptime `until` can end.
  void SkipIdle(std::chrono::nanoseconds until) { pump_.SkipIdle(kSlice, until); }

  /// Delivers what waits, without sleeping. Never throws ProgramEnd.
  void Dispatch() { pump_.Dispatch(); }

  /// Waits the whole `duration`. Never throws ProgramEnd.
  void Pause(std::chrono::milliseconds duration);

 private:
  Clock& clock_;
  EventPump& pump_;
  std::optional<ProgramEnd> end_;
};

}  // namespace orvenza
