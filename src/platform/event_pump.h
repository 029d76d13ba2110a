#pragma once

#include <chrono>
#include <functional>

namespace orvenza {

/// The single thread's source of events: due timers, the operator's input, the device control's events.
/// Handlers run only inside these calls (except those of a control that raises events while it is called) and
/// may themselves wait (a dialog inside a dialog).
class EventPump {
 public:
  virtual ~EventPump() = default;

  /// Delivers every waiting event and returns without sleeping.
  virtual void Dispatch() = 0;

  /// Sleeps until an event arrives, at most `limit`, then delivers the waiting events. Returns early after
  /// the first delivery, so callers that must wait the whole time check the clock and call again.
  virtual void WaitForEvent(std::chrono::nanoseconds limit) = 0;

  /// Skips whole slices of a wait in which nothing can happen: those that end before the uptime `until` and
  /// before the next event. Only virtual time, which knows its next event, can be skipped.
  virtual void SkipIdle(std::chrono::nanoseconds slice, std::chrono::nanoseconds until) {
    static_cast<void>(slice);
    static_cast<void>(until);
  }
};

/// Runs actions later, from inside the event pump.
class Scheduler {
 public:
  virtual ~Scheduler() = default;

  /// Runs `action` once, as an event, when `delay` has passed (zero: at the next delivery). Actions due at
  /// the same moment run in the order they were added.
  virtual void After(std::chrono::nanoseconds delay, std::function<void()> action) = 0;
};

}  // namespace orvenza
