#pragma once

#include <cstddef>

#include "core/settings.h"
#include "device/clock_correction.h"

namespace orvenza {

/// Says when the PC's clock is to be compared with the register's again.
class ClockCheck {
 public:
  ClockCheck(const AppSettings& settings, const ClockCorrection& correction)
      : settings_(settings), correction_(correction) {}

  /// Counts one polling interval, however long the tick really took. True when a check has fallen due; the
  /// count then starts again, as it does after every correction. Never when corrections are switched off.
  bool CountTick();

 private:
  const AppSettings& settings_;
  const ClockCorrection& correction_;
  double seconds_ = 0;
  std::size_t correctionsSeen_ = 0;
};

}  // namespace orvenza
