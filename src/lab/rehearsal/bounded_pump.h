#pragma once

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/event_pump.h"
#include "simulator/virtual_clock.h"

namespace orvenza {

/// Thrown when a run takes too long. Deliberately not a std::exception: no trap may stop it.
struct RunTooLong {};

/// Delivers the virtual clock's events up to a time limit, and up to a number of events that take no time.
class BoundedPump : public EventPump {
 public:
  BoundedPump(VirtualClock& clock, std::chrono::milliseconds limit) : clock_(clock), limit_(limit) {}

  void Dispatch() override {
    Count();
    clock_.Dispatch();
  }
  void WaitForEvent(std::chrono::nanoseconds limit) override {
    Count();
    clock_.WaitForEvent(limit);
  }
  void SkipIdle(std::chrono::nanoseconds slice, std::chrono::nanoseconds until) override {
    clock_.SkipIdle(slice, std::min<std::chrono::nanoseconds>(until, limit_));
  }

 private:
  static constexpr int kMostAtOnce = 1'000'000;

  void Count() {
    if (std::exchange(last_, clock_.Uptime()) != clock_.Uptime()) standing_ = 0;
    if (clock_.Uptime() > limit_ || ++standing_ > kMostAtOnce) throw RunTooLong{};
  }

  VirtualClock& clock_;
  std::chrono::milliseconds limit_;
  std::chrono::nanoseconds last_{};
  int standing_ = 0;
};

}  // namespace orvenza
