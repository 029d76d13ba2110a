#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace orvenza {

/// A date and time of day of the PC, in milliseconds. It is local time, without a zone.
using TraceTime = std::chrono::sys_time<std::chrono::milliseconds>;

/// What the PC's clock shows.
TraceTime WallTime(const Clock& clock);

/// The same in the form of the other parts, and back; the milliseconds are cut off.
LocalTime LocalTimeOf(TraceTime time);
TraceTime TraceTimeOf(const LocalTime& time);

/// Length of a stamp.
inline constexpr std::size_t kTraceStampLength = 23;

/// "dd/mm/yyyy hh:mm:ss.mmm".
std::string TraceStamp(TraceTime time);

/// The time of a stamp; empty unless all of `text` is one.
std::optional<TraceTime> ReadTraceStamp(std::string_view text);

/// The times of a trace. Between two of them exactly as much time lies as really passed, until Jump says that
/// the PC's clock was set.
class TraceClock {
 public:
  explicit TraceClock(const Clock& clock);

  TraceTime Now() const;

  /// If the PC's clock differs from Now() by more than a second, or if `set`, begins anew with what it shows
  /// and returns that.
  std::optional<TraceTime> Jump(bool set);

 private:
  const Clock& clock_;
  std::chrono::nanoseconds uptime_;  ///< When the clock showed `wall_`.
  std::chrono::sys_time<std::chrono::microseconds> wall_;
};

}  // namespace orvenza
