#pragma once

#include <string>
#include <string_view>

namespace orvenza {

// The formatters convert one field of a ticket line into the fixed-width text of a command. All are pure
// functions of the text; "" is the only rejection, and nothing is logged. All except FmtText ignore leading
// and trailing blanks.

enum class ValueKind {
  /// Digits only, not empty. A value longer than the width deliberately loses its leading digits without an
  /// error; a shorter one is padded with zeros on the left. The range applies to the resulting value.
  kDigits,
  /// Digits of an amount in cents, padded in the same way but never cut: a longer value is returned whole.
  kAmount,
  /// Digits read as a number: nothing is cut, leading zeros are ignored. "105" is 105, "005" is 5.
  kNumber,
  /// One digit by value, returned unchanged: leading zeros are neither added nor removed.
  kDigit,
  /// The first characters, padded with blanks; blanks inside are kept. "" for an empty text or a width below
  /// 1.
  kText,
  /// Four integer and three decimal digits. With a "," or ".", the digits before it are the integer part
  /// (longer ones are kept whole) and the first three digits after it the decimals (cut, not rounded); either
  /// part may be missing. Without one, the text counts thousandths and needs at least three characters. A
  /// second separator is rejected: it may be a thousands separator or a typing error, and a wrong quantity
  /// would be printed.
  kQuantity,
};

/// A formatter, called like a function. Its rule is public, so that its result can be explained.
struct ValueForm {
  ValueKind kind;
  int width;                   ///< Width of the result in characters.
  int lowest = 0;              ///< Limit of the values of kDigits, kNumber and kDigit.
  int highest = 0;             ///< The same.
  std::string_view outside{};  ///< The result for digits outside this range; "" rejects them.

  std::string operator()(std::string_view text) const;
};

inline constexpr ValueForm FmtNum2Max20{ValueKind::kDigits, 2, 0, 20, "20"};
inline constexpr ValueForm FmtNum2Max10{ValueKind::kDigits, 2, 0, 10, "10"};
/// 0 deliberately becomes "10".
inline constexpr ValueForm FmtNum2Range10{ValueKind::kDigits, 2, 1, 10, "10"};
/// 0 deliberately becomes "40".
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
