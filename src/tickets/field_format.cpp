#include "tickets/field_format.h"

#include <algorithm>
#include <cstddef>

#include "core/text.h"

namespace orvenza {
namespace {

/// `text` without blanks around it; "" when it contains anything but digits.
std::string_view TrimmedDigits(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  return OnlyDigits(trimmed) ? trimmed : std::string_view{};
}

/// `digits` must fit an int.
int ValueOf(std::string_view digits) {
  int value = 0;
  for (const char c : digits) value = value * 10 + (c - '0');
  return value;
}

bool IsInRange(std::string_view digits, const ValueForm& form) {
  const int value = ValueOf(digits);
  return value >= form.lowest && value <= form.highest;
}

std::string PadZeros(std::string_view digits, std::size_t width) {
  std::string padded(width - std::min(width, digits.size()), '0');
  return padded.append(digits);
}

std::string FormatDigits(std::string_view text, const ValueForm& form) {
  const auto width = static_cast<std::size_t>(form.width);
  const std::string_view digits = Right(TrimmedDigits(text), width);
  if (digits.empty()) return {};
  return IsInRange(digits, form) ? PadZeros(digits, width) : std::string(form.outside);
}

std::string FormatAmount(std::string_view text, const ValueForm& form) {
  const std::string_view digits = TrimmedDigits(text);
  return digits.empty() ? std::string() : PadZeros(digits, static_cast<std::size_t>(form.width));
}

std::string FormatNumber(std::string_view text, const ValueForm& form) {
  const auto width = static_cast<std::size_t>(form.width);
  const std::string_view digits = TrimmedDigits(text);
  const std::string_view significant = WithoutLeadingZeros(digits);
  if (digits.empty() || significant.size() > width || !IsInRange(significant, form)) return {};
  return PadZeros(significant, width);
}

std::string FormatDigit(std::string_view text, const ValueForm& form) {
  const std::string_view digits = TrimmedDigits(text);
  const std::string_view significant = WithoutLeadingZeros(digits);
  if (significant.size() > 1 || !IsInRange(significant, form)) return {};
  return std::string(digits);
}

std::string FormatText(std::string_view text, const ValueForm& form) {
  if (text.empty() || form.width < 1) return {};
  const auto length = static_cast<std::size_t>(form.width);
  std::string fitted;
  fitted.reserve(length);
  fitted = text.substr(0, length);
  fitted.resize(length, ' ');
  return fitted;
}

std::string FormatQuantity(std::string_view text) {
  constexpr std::size_t kIntegerDigits = 4;
  constexpr std::size_t kDecimals = 3;
  const std::string_view trimmed = Trim(text);
  const std::size_t point = trimmed.find_first_of(",.");
  const bool hasPoint = point != std::string_view::npos;
  if (!hasPoint && trimmed.size() < kDecimals) return {};

  const std::size_t split = hasPoint ? point : trimmed.size() - kDecimals;
  const std::string_view integer = trimmed.substr(0, split);
  const std::string_view decimals = trimmed.substr(hasPoint ? split + 1 : split);
  if (!OnlyDigits(integer) || !OnlyDigits(decimals)) return {};

  std::string quantity = PadZeros(integer, kIntegerDigits);
  quantity.append(decimals.substr(0, kDecimals));
  return quantity.append(kDecimals - std::min(kDecimals, decimals.size()), '0');
}

}  // namespace

std::string ValueForm::operator()(std::string_view text) const {
  switch (kind) {
    case ValueKind::kDigits: return FormatDigits(text, *this);
    case ValueKind::kAmount: return FormatAmount(text, *this);
    case ValueKind::kNumber: return FormatNumber(text, *this);
    case ValueKind::kDigit: return FormatDigit(text, *this);
    case ValueKind::kText: return FormatText(text, *this);
    case ValueKind::kQuantity: return FormatQuantity(text);
  }
  return {};
}

}  // namespace orvenza
