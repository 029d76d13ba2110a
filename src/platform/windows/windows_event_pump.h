#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/event_pump.h"

namespace orvenza {

/// The event pump of a program with windows: the messages of the thread that created it, and timers. One
/// delivery (Dispatch or WaitForEvent) dispatches the waiting messages and then runs every due timer in order
/// of time. Timers run from the pump's own frame only, never from a window procedure: while the system runs
/// its own loop (an open menu), they wait until it ends. So actions may pump, add timers and throw. A window
/// procedure posts any action that may throw.
class WindowsEventPump : public EventPump, public Scheduler {
 public:
  WindowsEventPump();
  ~WindowsEventPump() override;
  WindowsEventPump(const WindowsEventPump&) = delete;
  WindowsEventPump& operator=(const WindowsEventPump&) = delete;

  void Dispatch() override;
  void WaitForEvent(std::chrono::nanoseconds limit) override;
  /// Accurate to about a millisecond.
  void After(std::chrono::nanoseconds delay, std::function<void()> action) override;

  /// Runs `action` at the next delivery.
  void Post(std::function<void()> action) { After(std::chrono::nanoseconds::zero(), std::move(action)); }

  /// Gives the top-level window `window` (a HWND) a dialog's keyboard handling: Tab, arrows, Enter, Escape
  /// and mnemonics. RemoveDialog must be called before the window is destroyed.
  void AddDialog(void* window);
  void RemoveDialog(void* window);

  /// `handler` is called when the thread receives WM_QUIT.
  void OnTerminate(std::function<void()> handler) { onTerminate_ = std::move(handler); }

 private:
  using Moment = std::chrono::nanoseconds;  ///< On the clock of SteadyTime.

  struct Timer {
    std::uint64_t number = 0;
    std::function<void()> action;
  };

  bool Sleep(Moment end) const;
  bool Deliver();
  bool DeliverMessages();
  bool DeliverTimers();

  /// Timers due at the same moment run in the order they were added.
  std::multimap<Moment, Timer> timers_;
  std::uint64_t nextNumber_ = 0;
  std::vector<void*> dialogs_;
  std::function<void()> onTerminate_;
};

}  // namespace orvenza
