#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/event_pump.h"

namespace orvenza {

/// The event pump of a program with windows: the messages of its thread, which is the one that made it, and
/// timers. One delivery (Dispatch or WaitForEvent) dispatches the messages that wait and then runs every
/// timer that is due, in the order of their moments. Timers run from the pump's own frame only, never from a
/// window procedure: while the system runs a loop of its own (a menu that is open), they wait until it ends.
/// So actions may pump, add timers and throw, and a window procedure that wants something done that may throw
/// posts it.
class WindowsEventPump : public EventPump, public Scheduler {
 public:
  WindowsEventPump();
  ~WindowsEventPump() override;
  WindowsEventPump(const WindowsEventPump&) = delete;
  WindowsEventPump& operator=(const WindowsEventPump&) = delete;

  void Dispatch() override;
  void WaitForEvent(std::chrono::nanoseconds limit) override;
  /// Precise to about a millisecond.
  void After(std::chrono::nanoseconds delay, std::function<void()> action) override;

  /// Runs `action` at the next delivery.
  void Post(std::function<void()> action) { After(std::chrono::nanoseconds::zero(), std::move(action)); }

  /// From now on the top-level window `window` (a HWND) has the keyboard handling of a dialog: Tab, arrows,
  /// Enter, Escape and mnemonics. To be removed before the window is destroyed.
  void AddDialog(void* window);
  void RemoveDialog(void* window);

  /// `handler` is called when somebody asks the thread to end (WM_QUIT).
  void OnTerminate(std::function<void()> handler) { onTerminate_ = std::move(handler); }

 private:
  using Moment = std::chrono::nanoseconds;  ///< On SteadyTime.

  struct Timer {
    std::uint64_t number = 0;
    std::function<void()> action;
  };

  bool Sleep(Moment end) const;
  bool Deliver();
  bool DeliverMessages();
  bool DeliverTimers();

  /// Those of the same moment in the order they were given.
  std::multimap<Moment, Timer> timers_;
  std::uint64_t nextNumber_ = 0;
  std::vector<void*> dialogs_;
  std::function<void()> onTerminate_;
};

}  // namespace orvenza
