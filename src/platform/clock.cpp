#include "platform/clock.h"

#include <algorithm>

namespace orvenza {
namespace {

constexpr std::size_t kStampLength = 19;

/// Appends `number` with leading zeros to at least `width` digits.
std::string& AppendDigits(std::string& text, int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return text.append(width - std::min(width, digits.size()), '0').append(digits);
}

}  // namespace

std::string DateDigits(const LocalTime& time) {
  std::string digits;
  AppendDigits(digits, time.year, 4);
  AppendDigits(digits, time.month, 2);
  return AppendDigits(digits, time.day, 2);
}

std::string TimeDigits(const LocalTime& time) {
  std::string digits;
  AppendDigits(digits, time.hour, 2);
  AppendDigits(digits, time.minute, 2);
  return AppendDigits(digits, time.second, 2);
}

std::string FixedStamp(const LocalTime& time) {
  std::string stamp;
  stamp.reserve(kStampLength);
  AppendDigits(stamp, time.day, 2) += '/';
  AppendDigits(stamp, time.month, 2) += '/';
  AppendDigits(stamp, time.year, 4) += ' ';
  AppendDigits(stamp, time.hour, 2) += ':';
  AppendDigits(stamp, time.minute, 2) += ':';
  return AppendDigits(stamp, time.second, 2);
}

}  // namespace orvenza
