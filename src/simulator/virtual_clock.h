#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/event_pump.h"

namespace orvenza {

/// Time that passes only while somebody waits, so that hours of waiting take milliseconds. It is the clock,
/// the event pump and the scheduler in one, because a wait jumps to the next action that is due. Not for use
/// from several threads.
class VirtualClock : public Clock, public EventPump, public Scheduler {
 public:
  /// The wall clock shows `start`, a valid date and time, when the uptime is 0.
  explicit VirtualClock(const LocalTime& start = {2026, 11, 16, 9, 0, 0}) : wallStart_(start) {}

  LocalTime Now() const override;
  double SecondsSinceMidnight() const override;
  std::chrono::nanoseconds Uptime() const override { return uptime_; }

  /// Moves the wall clock within its day; the uptime and what is scheduled stay as they are. Throws
  /// SystemError: 70 after RefuseSetTime(true), 51 for a time of day that does not exist.
  void SetTimeOfDay(int hour, int minute, int second) override;

  /// "dd/mm/yyyy hh:mm:ss".
  std::string Stamp(const LocalTime& time) const override;

  /// Runs what is due now. What that adds without delay waits for the next delivery, so that an action which
  /// repeats itself does not hold the caller for ever.
  void Dispatch() override;

  /// Moves the time to the next due action, at most by `limit`, and runs everything due at that moment.
  void WaitForEvent(std::chrono::nanoseconds limit) override;

  void After(std::chrono::nanoseconds delay, std::function<void()> action) override;

  /// Lets the whole `duration` pass, running what falls due on the way at its own moment.
  void Advance(std::chrono::nanoseconds duration);

  /// Lets the whole `duration` pass and runs nothing, as a loop of the system's own does, such as an open
  /// menu.
  void Stall(std::chrono::nanoseconds duration) { uptime_ = UptimeIn(duration); }

  void RefuseSetTime(bool refuse) { refuseSetTime_ = refuse; }

  /// Who is told what the wall clock shows, each time it was set.
  void SetObserver(std::function<void(const LocalTime&)> observer) { observer_ = std::move(observer); }

  /// What the wall clock showed right after each time it was set, oldest first.
  const std::vector<LocalTime>& TimesSet() const { return timesSet_; }

 private:
  struct Moment {
    std::chrono::nanoseconds due;
    std::uint64_t order;
    auto operator<=>(const Moment&) const = default;
  };

  std::chrono::nanoseconds SinceWallStart() const;
  std::chrono::nanoseconds UptimeIn(std::chrono::nanoseconds delay) const;

  std::chrono::nanoseconds uptime_{};
  LocalTime wallStart_;  ///< What the wall clock showed at the moment below.
  std::chrono::nanoseconds wallStartUptime_{};
  std::map<Moment, std::function<void()>> actions_;
  std::uint64_t nextOrder_ = 0;
  bool refuseSetTime_ = false;
  std::vector<LocalTime> timesSet_;
  std::function<void(const LocalTime&)> observer_;
};

}  // namespace orvenza
