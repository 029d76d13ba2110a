#pragma once

#include "platform/clock.h"

namespace orvenza {

/// The clock of Windows. Stamps use the user's short date format and time format.
class WindowsClock : public Clock {
 public:
  LocalTime Now() const override;
  double SecondsSinceMidnight() const override;
  std::chrono::nanoseconds Uptime() const override;
  /// Throws SystemError 70 when the system refuses and 51 for an invalid time of day.
  void SetTimeOfDay(int hour, int minute, int second) override;
  /// A date before 1601, which the system cannot format, has the fixed layout "dd/mm/yyyy hh:mm:ss".
  std::string Stamp(const LocalTime& time) const override;
};

}  // namespace orvenza
