#pragma once

#include <chrono>
#include <cstddef>

#include "lab/shell/console.h"
#include "platform/clock.h"

namespace orvenza {

/// Progress in percent, shown on a terminal once the run takes longer than a second.
class TableProgress {
 public:
  TableProgress(Console& console, const Clock& clock)
      : console_(console), clock_(clock), start_(clock.Uptime()) {}

  void Tell(std::size_t done, std::size_t all);

  /// Erases the line.
  void End();

 private:
  Console& console_;
  const Clock& clock_;
  std::chrono::nanoseconds start_;
  std::size_t shown_ = 0;
};

}  // namespace orvenza
