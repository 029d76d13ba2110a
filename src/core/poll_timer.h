#pragma once

#include <algorithm>
#include <chrono>

#include "platform/clock.h"

namespace orvenza {

/// `Timer1`: knows when the next tick is due. Only the main loop runs ticks, so they never overlap.
class PollTimer {
 public:
  static constexpr std::chrono::milliseconds kInterval{500};

  explicit PollTimer(const Clock& clock) : clock_(clock) {}

  bool Enabled() const { return enabled_; }

  /// Enabling starts a full interval, even if the timer was already enabled.
  void SetEnabled(bool enabled) {
    enabled_ = enabled;
    due_ = clock_.Uptime() + kInterval;
  }

  /// Time until the next tick; zero when it is due. Only meaningful while enabled.
  std::chrono::nanoseconds TimeLeft() const {
    return std::max(std::chrono::nanoseconds::zero(), due_ - clock_.Uptime());
  }

 private:
  const Clock& clock_;
  bool enabled_ = false;
  std::chrono::nanoseconds due_{};
};

/// Disables polling for its lifetime and then restores the previous state: a dialog opened in the middle of a
/// tick must not enable polling.
class [[nodiscard]] PollingPause {
 public:
  explicit PollingPause(PollTimer& timer) : timer_(timer), wasEnabled_(timer.Enabled()) {
    timer_.SetEnabled(false);
  }
  ~PollingPause() { timer_.SetEnabled(wasEnabled_); }
  PollingPause(const PollingPause&) = delete;
  PollingPause& operator=(const PollingPause&) = delete;

 private:
  PollTimer& timer_;
  bool wasEnabled_;
};

}  // namespace orvenza
