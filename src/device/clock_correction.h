#pragma once

#include <cstddef>
#include <string_view>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/clock.h"

namespace orvenza {

/// Keeps the PC's time of day equal to the register's, which always wins.
class ClockCorrection {
 public:
  ClockCorrection(Clock& clock, const AppSettings& settings, Logs& logs)
      : clock_(clock), settings_(settings), logs_(logs) {}

  /// Sets the PC's clock if it differs too much from `reply`, the register's answer to the clock query (hours
  /// and minutes at characters 11 to 14). Has no effect near midnight or for a malformed reply. A refusal by
  /// the system is logged once in the error log.
  void Correct(std::string_view reply);

  /// How often the PC's clock was set.
  std::size_t Corrections() const { return corrections_; }

 private:
  bool NearMidnight() const;

  Clock& clock_;
  const AppSettings& settings_;
  Logs& logs_;
  std::size_t corrections_ = 0;
  bool refusalLogged_ = false;
};

}  // namespace orvenza
