#include "platform/clock.h"

#include <cstdio>

namespace orvenza {

std::string DateDigits(const LocalTime& time) {
  char digits[40];
  std::snprintf(digits, sizeof digits, "%04d%02d%02d", time.year, time.month, time.day);
  return digits;
}

std::string TimeDigits(const LocalTime& time) {
  char digits[40];
  std::snprintf(digits, sizeof digits, "%02d%02d%02d", time.hour, time.minute, time.second);
  return digits;
}

}  // namespace orvenza
