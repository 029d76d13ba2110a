#include "tickets/field_format.h"

#include <algorithm>
#include <cstddef>

#include "core/text.h"

namespace orvenza {
namespace {

/// One member of the digit family: how many digits it keeps, the values it lets pass, and what it returns for
/// the others.
struct DigitRule {
  std::size_t width;
  int lowest;
  int highest;
  std::string_view outside;
};

bool OnlyDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// `text` without the blanks around it; "" when it holds anything but digits.
std::string_view TrimmedDigits(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  return OnlyDigits(trimmed) ? trimmed : std::string_view{};
}

std::string_view WithoutLeadingZeros(std::string_view digits) {
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

/// `digits` must be few enough for an int.
int ValueOf(std::string_view digits) {
  int value = 0;
  for (const char c : digits) value = value * 10 + (c - '0');
  return value;
}

std::string PadZeros(std::string_view digits, std::size_t width) {
  std::string padded(width - std::min(width, digits.size()), '0');
  return padded.append(digits);
}

std::string FormatDigits(std::string_view text, const DigitRule& rule) {
  const std::string_view digits = Right(TrimmedDigits(text), rule.width);
  if (digits.empty()) return {};
  const int value = ValueOf(digits);
  if (value < rule.lowest || value > rule.highest) return std::string(rule.outside);
  return PadZeros(digits, rule.width);
}

std::string FormatDigitUpTo(std::string_view text, int highest) {
  const std::string_view digits = TrimmedDigits(text);
  const std::string_view significant = WithoutLeadingZeros(digits);
  if (significant.size() > 1 || ValueOf(significant) > highest) return {};
  return std::string(digits);
}

}  // namespace

std::string FmtNum2Max20(std::string_view text) { return FormatDigits(text, {2, 0, 20, "20"}); }
std::string FmtNum2Max10(std::string_view text) { return FormatDigits(text, {2, 0, 10, "10"}); }
std::string FmtNum2Range10(std::string_view text) { return FormatDigits(text, {2, 1, 10, "10"}); }
std::string FmtNum2Range40(std::string_view text) { return FormatDigits(text, {2, 1, 40, "40"}); }
std::string FmtNum2Max40(std::string_view text) { return FormatDigits(text, {2, 0, 40, "40"}); }
std::string FmtNum2Upto10(std::string_view text) { return FormatDigits(text, {2, 0, 10, ""}); }
std::string FmtNum4Max1260(std::string_view text) { return FormatDigits(text, {4, 0, 1260, "1260"}); }
std::string FmtNum4Min1(std::string_view text) { return FormatDigits(text, {4, 1, 9999, ""}); }
std::string FmtNum4Range200(std::string_view text) { return FormatDigits(text, {4, 0, 200, ""}); }
std::string FmtNum4Range9999(std::string_view text) { return FormatDigits(text, {4, 1, 9999, ""}); }
std::string FmtNum5Range9999(std::string_view text) { return FormatDigits(text, {5, 1, 9999, ""}); }

std::string FmtAmount9(std::string_view text) {
  const std::string_view digits = TrimmedDigits(text);
  return digits.empty() ? std::string() : PadZeros(digits, 9);
}

std::string FmtNum2Within(std::string_view text, int highest) {
  const std::string_view significant = WithoutLeadingZeros(TrimmedDigits(text));
  if (significant.empty() || significant.size() > 2 || ValueOf(significant) > highest) return {};
  return PadZeros(significant, 2);
}

std::string FmtDigit0to5(std::string_view text) { return FormatDigitUpTo(text, 5); }
std::string FmtDigit0to3(std::string_view text) { return FormatDigitUpTo(text, 3); }
std::string FmtDigit0to9(std::string_view text) { return FormatDigitUpTo(text, 9); }

std::string FmtText(std::string_view text, int width) {
  if (text.empty() || width < 1) return {};
  const auto length = static_cast<std::size_t>(width);
  std::string fitted;
  fitted.reserve(length);
  fitted = text.substr(0, length);
  fitted.resize(length, ' ');
  return fitted;
}

std::string FmtQuantity(std::string_view text) {
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

}  // namespace orvenza
