#pragma once

#include <string_view>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/clock.h"

namespace orvenza {

/// Keeps the PC's time of day with the register's, which always wins.
class ClockCorrection {
 public:
  ClockCorrection(Clock& clock, const AppSettings& settings, Logs& logs)
      : clock_(clock), settings_(settings), logs_(logs) {}

  /// Counts one polling interval, however long the tick really took. True when a correction has fallen due;
  /// the count then starts again. Never when corrections are switched off.
  bool CountTick();

  /// Sets the PC clock when it differs too much from `reply`, the register's answer to the clock query (hours
  /// and minutes at characters 11 to 14). Does nothing near midnight or for a reply of another form. A
  /// refusal by the system is written to the error log once.
  void Correct(std::string_view reply);

 private:
  bool NearMidnight() const;

  Clock& clock_;
  const AppSettings& settings_;
  Logs& logs_;
  double seconds_ = 0;
  bool refusalLogged_ = false;
};

}  // namespace orvenza
