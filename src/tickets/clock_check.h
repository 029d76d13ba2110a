#pragma once

#include <cstddef>

#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/register_queries.h"

namespace orvenza {

/// Compares the PC clock with the register's from time to time.
class ClockCheck {
 public:
  ClockCheck(const AppSettings& settings, RegisterQueries& queries, ClockCorrection& correction)
      : settings_(settings), queries_(queries), correction_(correction) {}

  /// Counts one polling interval; when a check is due, asks the register for its time and corrects the PC
  /// clock.
  void Tick();

  /// Counts one polling interval, however long the tick really took. True when a check has fallen due; the
  /// count then starts again, as it does after every correction. Never when corrections are switched off.
  [[nodiscard]] bool CountTick();

 private:
  const AppSettings& settings_;
  RegisterQueries& queries_;
  ClockCorrection& correction_;
  double seconds_ = 0;
  std::size_t correctionsSeen_ = 0;
};

}  // namespace orvenza
