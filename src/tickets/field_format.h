#pragma once

#include <string>
#include <string_view>

namespace orvenza {

// The formatters turn one field of a ticket line into the fixed-width text that a command carries. All are
// pure functions; "" is the only rejection and nothing is logged. All but FmtText leave out leading and
// trailing blanks first.
//
// The digit formatters accept digits only and reject an empty text. A value longer than their width loses its
// leading digits, deliberately without any error; a shorter one is padded with zeros on the left. The range
// is that of the value so cut.

/// Two digits; above 20 becomes "20".
std::string FmtNum2Max20(std::string_view text);
/// Two digits; above 10 becomes "10".
std::string FmtNum2Max10(std::string_view text);
/// Two digits 1 to 10; 0 and above 10 become "10" (0 on purpose).
std::string FmtNum2Range10(std::string_view text);
/// Two digits 1 to 40; 0 and above 40 become "40" (0 on purpose).
std::string FmtNum2Range40(std::string_view text);
/// Two digits; above 40 becomes "40".
std::string FmtNum2Max40(std::string_view text);
/// Two digits; above 10 is rejected.
std::string FmtNum2Upto10(std::string_view text);
/// Four digits; above 1260 becomes "1260".
std::string FmtNum4Max1260(std::string_view text);
/// Four digits; 0 is rejected.
std::string FmtNum4Min1(std::string_view text);
/// Four digits; above 200 is rejected.
std::string FmtNum4Range200(std::string_view text);
/// Four digits; 0 is rejected.
std::string FmtNum4Range9999(std::string_view text);
/// Five digits; 0 and above 9999 are rejected.
std::string FmtNum5Range9999(std::string_view text);

/// An amount in cents: nine digits, never cut: a longer value is returned whole.
std::string FmtAmount9(std::string_view text);

/// Two digits, 1 to `highest` (at most 99), anything else rejected. Unlike the formatters above it cuts
/// nothing: "105" is 105 and rejected, "005" is 5 and becomes "05".
std::string FmtNum2Within(std::string_view text, int highest);

// One digit by value, returned as it stands: leading zeros are neither added nor removed.

/// 0 to 5, anything else rejected.
std::string FmtDigit0to5(std::string_view text);
/// 0 to 3, anything else rejected.
std::string FmtDigit0to3(std::string_view text);
/// 0 to 9, anything else rejected.
std::string FmtDigit0to9(std::string_view text);

/// The first `width` characters of `text`, filled up with blanks; its own blanks stay. "" for an empty text
/// or a width below 1.
std::string FmtText(std::string_view text, int width);

/// A quantity: four integer and three decimal digits. With a "," or "." the digits before it are the integer
/// part (longer ones stay whole) and the first three after it the decimals (cut, not rounded); either part
/// may be missing. Without one the text counts thousandths, and must have three characters at least. A
/// second separator is rejected: as thousands separator or slip of the pen, reading on would print a wrong
/// quantity.
std::string FmtQuantity(std::string_view text);

}  // namespace orvenza
