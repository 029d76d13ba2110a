#include "device/clock_correction.h"

#include <cmath>
#include <optional>

#include "core/text.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

constexpr double kSecondsPerDay = 86400;
/// In seconds; added to the tolerance on both sides of midnight.
constexpr double kMidnightMargin = 120;

/// The two-digit number at the 1-based `start`; empty if there is none below `limit`.
std::optional<int> TwoDigits(std::string_view reply, std::size_t start, int limit) {
  const std::string_view digits = Middle(reply, start, 2);
  if (digits.size() != 2 || !OnlyDigits(digits)) return std::nullopt;
  const int value = LeadingInteger(digits);
  return value < limit ? std::optional(value) : std::nullopt;
}

}  // namespace

bool ClockCorrection::NearMidnight() const {
  const double guard = std::nearbyint(settings_.TimeShift + kMidnightMargin);
  // Read twice: midnight may pass in between.
  const double first = clock_.SecondsSinceMidnight();
  const double second = clock_.SecondsSinceMidnight();
  return second < guard || first > kSecondsPerDay - guard;
}

void ClockCorrection::Correct(std::string_view reply) {
  if (NearMidnight() || settings_.PcTimeCorrection <= 0) return;
  const auto hour = TwoDigits(reply, 11, 24);
  const auto minute = TwoDigits(reply, 13, 60);
  if (!hour || !minute) return;
  const double difference = std::trunc(clock_.SecondsSinceMidnight()) - (*hour * 3600 + *minute * 60);
  if (std::abs(difference) <= settings_.TimeShift) return;
  try {
    clock_.SetTimeOfDay(*hour, *minute, 0);
    ++corrections_;
  } catch (const SystemError& refusal) {
    if (!refusalLogged_) logs_.WrFailure("Timer1 - ", refusal.Number(), refusal.Description());
    refusalLogged_ = true;
  }
}

}  // namespace orvenza
