#pragma once

#include <string>
#include <string_view>

namespace orvenza {

// The formatters turn one field of a ticket line into the fixed-width text that a command carries. All are
// pure functions of the text; "" is the only rejection and nothing is logged. All but FmtText leave out
// leading and trailing blanks first.

enum class ValueKind {
  /// Digits only, not empty. A value longer than the width loses its leading digits, deliberately without any
  /// error; a shorter one is padded with zeros on the left. The range is that of the value so cut.
  kDigits,
  /// Digits of an amount in cents, padded in the same way but never cut: a longer value is returned whole.
  kAmount,
  /// Digits read as a number: nothing is cut, leading zeros do not count. "105" is 105, "005" is 5.
  kNumber,
  /// One digit by value, returned as it stands: leading zeros are neither added nor removed.
  kDigit,
  /// The first characters, filled up with blanks; its own blanks stay. "" for an empty text or a width below
  /// 1.
  kText,
  /// Four integer and three decimal digits. With a "," or "." the digits before it are the integer part
  /// (longer ones stay whole) and the first three after it the decimals (cut, not rounded); either part may
  /// be missing. Without one the text counts thousandths, and must have three characters at least. A second
  /// separator is rejected: as thousands separator or slip of the pen, reading on would print a wrong
  /// quantity.
  kQuantity,
};

/// A formatter, called like a function. Its rule lies open for those who explain what it did.
struct ValueForm {
  ValueKind kind;
  int width;                   ///< Characters of the result.
  int lowest = 0;              ///< Of the values of kDigits, kNumber and kDigit.
  int highest = 0;             ///< The same.
  std::string_view outside{};  ///< What is returned for digits outside this range; "" rejects them.

  std::string operator()(std::string_view text) const;
};

inline constexpr ValueForm FmtNum2Max20{ValueKind::kDigits, 2, 0, 20, "20"};
inline constexpr ValueForm FmtNum2Max10{ValueKind::kDigits, 2, 0, 10, "10"};
/// 0 becomes "10" on purpose.
inline constexpr ValueForm FmtNum2Range10{ValueKind::kDigits, 2, 1, 10, "10"};
/// 0 becomes "40" on purpose.
inline constexpr ValueForm FmtNum2Range40{ValueKind::kDigits, 2, 1, 40, "40"};
inline constexpr ValueForm FmtNum2Max40{ValueKind::kDigits, 2, 0, 40, "40"};
inline constexpr ValueForm FmtNum2Upto10{ValueKind::kDigits, 2, 0, 10};
inline constexpr ValueForm FmtNum4Max1260{ValueKind::kDigits, 4, 0, 1260, "1260"};
inline constexpr ValueForm FmtNum4Min1{ValueKind::kDigits, 4, 1, 9999};
inline constexpr ValueForm FmtNum4Range200{ValueKind::kDigits, 4, 0, 200};
inline constexpr ValueForm FmtNum4Range9999{ValueKind::kDigits, 4, 1, 9999};
inline constexpr ValueForm FmtNum5Range9999{ValueKind::kDigits, 5, 1, 9999};

inline constexpr ValueForm FmtAmount9{ValueKind::kAmount, 9};

inline constexpr ValueForm FmtDigit0to5{ValueKind::kDigit, 1, 0, 5};
inline constexpr ValueForm FmtDigit0to3{ValueKind::kDigit, 1, 0, 3};
inline constexpr ValueForm FmtDigit0to9{ValueKind::kDigit, 1, 0, 9};

inline constexpr ValueForm FmtQuantity{ValueKind::kQuantity, 7};

/// Two digits, 1 to `highest` (at most 99).
constexpr ValueForm NumberWithin(int highest) { return {ValueKind::kNumber, 2, 1, highest}; }
constexpr ValueForm TextOf(int width) { return {ValueKind::kText, width}; }

inline std::string FmtText(std::string_view text, int width) { return TextOf(width)(text); }

}  // namespace orvenza
