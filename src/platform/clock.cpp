#include "platform/clock.h"

#include <algorithm>

namespace orvenza {
namespace {

/// `number` with zeros in front, at least `width` digits.
std::string Digits(int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

}  // namespace

std::string DateDigits(const LocalTime& time) {
  return Digits(time.year, 4) + Digits(time.month, 2) + Digits(time.day, 2);
}

std::string TimeDigits(const LocalTime& time) {
  return Digits(time.hour, 2) + Digits(time.minute, 2) + Digits(time.second, 2);
}

std::string FixedStamp(const LocalTime& time) {
  return Digits(time.day, 2) + "/" + Digits(time.month, 2) + "/" + Digits(time.year, 4) + " " +
         Digits(time.hour, 2) + ":" + Digits(time.minute, 2) + ":" + Digits(time.second, 2);
}

}  // namespace orvenza
