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

/// Time that passes only during waits, so that hours of waiting take milliseconds. It is clock, event pump
/// and scheduler in one, because a wait jumps to the next due action. Not thread-safe.
class VirtualClock : public Clock, public EventPump, public Scheduler {
 public:
  /// The wall clock shows `start`, a valid date and time, at uptime 0.
  explicit VirtualClock(const LocalTime& start = {2026, 11, 16, 9, 0, 0}) : wallStart_(start) {}

  LocalTime Now() const override;
  double SecondsSinceMidnight() const override;
  std::chrono::nanoseconds Uptime() const override { return uptime_; }

  /// Sets the wall clock within its day; the uptime and scheduled actions do not change. Throws SystemError:
  /// 70 after RefuseSetTime(true), 51 for an invalid time of day.
  void SetTimeOfDay(int hour, int minute, int second) override;

  /// "dd/mm/yyyy hh:mm:ss".
  std::string Stamp(const LocalTime& time) const override;

  /// Runs the due actions. Actions that they add without delay wait for the next delivery, so that a
  /// repeating action does not block the caller.
  void Dispatch() override;

  /// Moves the time to the next due action, at most by `limit`, and runs everything due then.
  void WaitForEvent(std::chrono::nanoseconds limit) override;

  void SkipIdle(std::chrono::nanoseconds slice, std::chrono::nanoseconds until) override;

  void After(std::chrono::nanoseconds delay, std::function<void()> action) override;

  /// Lets the whole `duration` pass and runs each action when it is due.
  void Advance(std::chrono::nanoseconds duration);

  /// Lets the whole `duration` pass without running anything, like a loop of the system (an open menu).
  void Stall(std::chrono::nanoseconds duration) { uptime_ = UptimeIn(duration); }

  void RefuseSetTime(bool refuse) { refuseSetTime_ = refuse; }

  /// Receives the wall clock's time after each setting.
  void SetObserver(std::function<void(const LocalTime&)> observer) { observer_ = std::move(observer); }

  /// The wall clock's time after each setting, oldest first.
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
  LocalTime wallStart_;  ///< The wall clock at uptime `wallStartUptime_`.
  std::chrono::nanoseconds wallStartUptime_{};
  std::map<Moment, std::function<void()>> actions_;
  std::uint64_t nextOrder_ = 0;
  bool refuseSetTime_ = false;
  std::vector<LocalTime> timesSet_;
  std::function<void(const LocalTime&)> observer_;
};

}  // namespace orvenza
