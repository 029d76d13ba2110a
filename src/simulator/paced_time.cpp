#include "simulator/paced_time.h"

#include <utility>

namespace orvenza {

using std::chrono::nanoseconds;

PacedTime::PacedTime(const TimeSeams& system, int pace)
    : system_(system), pace_(pace), start_(system.clock.Uptime()) {}

void PacedTime::SetTimeOfDay(int hour, int minute, int second) {
  system_.clock.SetTimeOfDay(hour, minute, second);
}

void PacedTime::WaitForEvent(nanoseconds limit) { system_.pump.WaitForEvent(Paced(limit)); }

void PacedTime::After(nanoseconds delay, std::function<void()> action) {
  system_.scheduler.After(Paced(delay), std::move(action));
}

/// Rounded up, so that a wait does not end too early.
nanoseconds PacedTime::Paced(nanoseconds duration) const {
  return duration / pace_ + nanoseconds(duration % pace_ > nanoseconds::zero() ? 1 : 0);
}

}  // namespace orvenza
