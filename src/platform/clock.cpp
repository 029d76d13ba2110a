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

std::string FixedStamp(const LocalTime& time) {
  char text[80];
  std::snprintf(text, sizeof text, "%02d/%02d/%04d %02d:%02d:%02d", time.day, time.month, time.year,
                time.hour, time.minute, time.second);
  return text;
}

}  // namespace orvenza
