#pragma once

#include "platform/clock.h"

namespace orvenza {

/// The clock of a POSIX system. Stamps have the fixed layout "dd/mm/yyyy hh:mm:ss".
class PosixClock : public Clock {
 public:
  LocalTime Now() const override;
  double SecondsSinceMidnight() const override;
  std::chrono::nanoseconds Uptime() const override;
  /// Throws SystemError 70 when the system refuses and 51 for an invalid time of day.
  void SetTimeOfDay(int hour, int minute, int second) override;
  std::string Stamp(const LocalTime& time) const override;
};

}  // namespace orvenza
