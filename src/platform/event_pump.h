#pragma once

#include <chrono>
#include <functional>

namespace orvenza {

/// The one thread's source of events: timers that fall due, the operator's input, the device control's
/// events. Handlers run inside these calls, never elsewhere (but for a control that raises its events while
/// it is called), and may themselves wait (a dialog inside a dialog).
class EventPump {
 public:
  virtual ~EventPump() = default;

  /// Delivers every event that waits, and returns without sleeping.
  virtual void Dispatch() = 0;

  /// Sleeps until an event arrives, at most `limit`, then delivers what waits. Returns early after the first
  /// delivery, so callers that must wait a whole time look at the clock and call again.
  virtual void WaitForEvent(std::chrono::nanoseconds limit) = 0;
};

/// Runs actions later, from inside the event pump.
class Scheduler {
 public:
  virtual ~Scheduler() = default;

  /// Runs `action` once, as an event, when `delay` has passed (zero: at the next delivery). Actions of the
  /// same moment run in the order they were given.
  virtual void After(std::chrono::nanoseconds delay, std::function<void()> action) = 0;
};

}  // namespace orvenza
