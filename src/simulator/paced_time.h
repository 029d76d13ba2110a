#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "platform/clock.h"
#include "platform/event_pump.h"

namespace orvenza {

/// The seams of time.
struct TimeSeams {
  Clock& clock;
  EventPump& pump;
  Scheduler& scheduler;
};

/// Makes everything that a program waits for pass `pace` times as fast. The uptime runs faster; date and time
/// of day stay those of the PC, as files are dated by them.
class PacedTime : public Clock, public EventPump, public Scheduler {
 public:
  /// What `system` refers to outlives this object; `pace` is at least 1.
  PacedTime(const TimeSeams& system, int pace);

  TimeSeams Seams() { return {*this, *this, *this}; }

  LocalTime Now() const override { return system_.clock.Now(); }
  double SecondsSinceMidnight() const override { return system_.clock.SecondsSinceMidnight(); }
  std::chrono::nanoseconds Uptime() const override { return (system_.clock.Uptime() - start_) * pace_; }
  void SetTimeOfDay(int hour, int minute, int second) override;
  std::string Stamp(const LocalTime& time) const override { return system_.clock.Stamp(time); }

  void Dispatch() override { system_.pump.Dispatch(); }
  void WaitForEvent(std::chrono::nanoseconds limit) override;
  void After(std::chrono::nanoseconds delay, std::function<void()> action) override;

 private:
  std::chrono::nanoseconds Paced(std::chrono::nanoseconds duration) const;

  TimeSeams system_;
  int pace_;
  std::chrono::nanoseconds start_;  ///< The system's uptime.
};

}  // namespace orvenza
