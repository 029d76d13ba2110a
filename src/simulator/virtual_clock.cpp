#include "simulator/virtual_clock.h"

#include <algorithm>
#include <utility>

#include "platform/system_error.h"
#include "simulator/calendar.h"

namespace orvenza {
namespace {

using std::chrono::floor;
using std::chrono::nanoseconds;
using std::chrono::seconds;

}  // namespace

nanoseconds VirtualClock::SinceWallStart() const { return uptime_ - wallStartUptime_; }

LocalTime VirtualClock::Now() const { return Later(wallStart_, floor<seconds>(SinceWallStart())); }

double VirtualClock::SecondsSinceMidnight() const {
  const LocalTime now = Now();
  const auto fraction = SinceWallStart() - floor<seconds>(SinceWallStart());
  return now.hour * 3600 + now.minute * 60 + now.second + std::chrono::duration<double>(fraction).count();
}

void VirtualClock::SetTimeOfDay(int hour, int minute, int second) {
  const bool exists = hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59;
  if (!exists) throw SystemError(error_number::kInternalError);
  if (refuseSetTime_) throw SystemError(error_number::kPermissionDenied);
  LocalTime time = Now();
  time.hour = hour;
  time.minute = minute;
  time.second = second;
  wallStart_ = time;
  wallStartUptime_ = uptime_;
  timesSet_.push_back(time);
  if (observer_) observer_(time);
}

std::string VirtualClock::Stamp(const LocalTime& time) const { return FixedStamp(time); }

void VirtualClock::Dispatch() {
  const auto end = nextOrder_;
  while (!actions_.empty()) {
    const auto first = actions_.begin();
    if (first->first.due > uptime_ || first->first.order >= end) return;
    // Removed before it runs, as it may wait, add actions or throw.
    const auto action = std::move(first->second);
    actions_.erase(first);
    action();
  }
}

void VirtualClock::WaitForEvent(nanoseconds limit) {
  auto target = UptimeIn(limit);
  if (!actions_.empty()) target = std::min(target, actions_.begin()->first.due);
  uptime_ = std::max(uptime_, target);
  Dispatch();
}

void VirtualClock::SkipIdle(nanoseconds slice, nanoseconds until) {
  const auto next = actions_.empty() ? until : std::min(until, actions_.begin()->first.due);
  if (next > uptime_) uptime_ += (next - uptime_ - nanoseconds(1)) / slice * slice;
}

void VirtualClock::After(nanoseconds delay, std::function<void()> action) {
  actions_.emplace(Moment{UptimeIn(delay), nextOrder_++}, std::move(action));
}

void VirtualClock::Advance(nanoseconds duration) {
  const auto target = UptimeIn(duration);
  while (uptime_ < target) WaitForEvent(target - uptime_);
}

nanoseconds VirtualClock::UptimeIn(nanoseconds delay) const {
  const auto most = nanoseconds::max() - uptime_;
  return uptime_ + std::clamp(delay, nanoseconds::zero(), most);
}

}  // namespace orvenza
