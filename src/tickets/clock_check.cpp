#include "tickets/clock_check.h"

#include <chrono>

#include "core/poll_timer.h"

namespace orvenza {

void ClockCheck::Tick() {
  if (!CountTick() || !queries_.StatusQuery(Asking::kQuiet)) return;
  if (const auto reply = queries_.ClockQuery(Asking::kQuiet)) correction_.Correct(*reply);
}

bool ClockCheck::CountTick() {
  if (settings_.PcTimeCorrection <= 0) return false;
  if (correctionsSeen_ != correction_.Corrections()) {
    correctionsSeen_ = correction_.Corrections();
    seconds_ = 0;
  }
  seconds_ += std::chrono::duration<double>(PollTimer::kInterval).count();
  if (seconds_ <= settings_.PcTimeCorrection) return false;
  seconds_ = 0;
  return true;
}

}  // namespace orvenza
