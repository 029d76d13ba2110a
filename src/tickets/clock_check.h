#pragma once

#include <cstddef>

#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/register_queries.h"

namespace orvenza {

/// Compares the PC's clock with the register's periodically.
class ClockCheck {
 public:
  ClockCheck(const AppSettings& settings, RegisterQueries& queries, ClockCorrection& correction)
      : settings_(settings), queries_(queries), correction_(correction) {}

  /// Counts one polling interval. When a check is due, queries the register's time and corrects the PC's
  /// clock.
  void Tick();

  /// Counts one polling interval, however long the tick really took. True when a check is due; the count then
  /// restarts, as it does after every correction. Always false if corrections are disabled.
  [[nodiscard]] bool CountTick();

 private:
  const AppSettings& settings_;
  RegisterQueries& queries_;
  ClockCorrection& correction_;
  double seconds_ = 0;
  std::size_t correctionsSeen_ = 0;
};

}  // namespace orvenza
