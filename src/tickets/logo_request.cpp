#include "tickets/logo_request.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/text.h"
#include "platform/folders.h"

namespace orvenza {
namespace {

/// Larger logo numbers are sent as this.
constexpr double kLargestLogo = 999'999'999;

}  // namespace

LogoRequest LogoRequestOf(const RecordFields& fields) {
  // The register refuses any number with many digits.
  const double rounded = std::round(LeadingNumber(fields[1]));
  const int number = static_cast<int>(std::clamp(rounded, -kLargestLogo, kLargestLogo));
  const std::string digits = std::to_string(std::abs(number));
  return {(number < 0 ? "-" : "") + std::string(digits.size() < 2 ? 1 : 0, '0') + digits,
          SettingsPath(std::string(fields[2]))};
}

}  // namespace orvenza
