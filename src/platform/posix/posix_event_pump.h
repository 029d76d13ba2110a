#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/event_pump.h"
#include "platform/posix/line_input.h"
#include "platform/posix/terminate_signals.h"

namespace orvenza {

/// The event pump of a terminal program: timers, input lines and termination signals. One delivery (Dispatch
/// or WaitForEvent) runs every timer that was due when it began, in order of time, but at most one input
/// line: a line that answers one dialog must leave the next line to the next dialog. Handlers may pump, add
/// timers, watch another input and throw.
class PosixEventPump : public EventPump, public Scheduler {
 public:
  PosixEventPump();

  void Dispatch() override;
  void WaitForEvent(std::chrono::nanoseconds limit) override;
  void After(std::chrono::nanoseconds delay, std::function<void()> action) override;

  /// Reads `descriptor`, which the caller keeps, and passes each line without its break to `onLine`. `onEnd`
  /// is called once after the last line, also after a read error. A previously watched input is replaced and
  /// its waiting lines are dropped.
  void WatchInput(int descriptor, std::function<void(const std::string&)> onLine,
                  std::function<void()> onEnd);

  /// Turns SIGINT, SIGTERM and SIGHUP into events: `handler` is called once for each signal. SIGPIPE is
  /// ignored.
  void OnTerminate(std::function<void()> handler);

 private:
  using Moment = std::chrono::nanoseconds;  ///< On the steady clock.

  bool InputReady() const;
  std::chrono::nanoseconds TimeToNextEvent(Moment end) const;
  void Collect(std::chrono::nanoseconds limit);
  bool Deliver();
  bool DeliverSignals();
  bool DeliverTimers();
  bool DeliverInput();

  /// Timers due at the same moment run in the order they were added.
  std::multimap<Moment, std::function<void()>> timers_;

  std::optional<LineInput> input_;
  std::function<void(const std::string&)> onLine_;
  std::function<void()> onEnd_;

  std::optional<TerminateSignals> signals_;
  std::function<void()> onTerminate_;
  int signalsWaiting_ = 0;
};

}  // namespace orvenza
