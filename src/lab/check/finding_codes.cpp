#include "lab/check/finding_codes.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace orvenza {
namespace {

constexpr FindingCode kCodes[] = {
    {"no-separator", true, "The line has no fields: the separator does not occur in it."},
    {"unknown-type", true, "There is no such record type."},
    {"no-choice", true, "The field chooses between several commands and is none of the alternatives."},
    {"empty", true, "A value is missing."},
    {"not-digits", true, "A number contains other characters than digits."},
    {"out-of-range", true, "A number is outside the accepted range."},
    {"quantity-short", true, "A quantity has neither comma nor point and fewer than three digits."},
    {"quantity-separators", true, "A quantity has more than one comma or point."},
    {"no-logo", true, "The file named as a logo is not a bitmap that the register can store."},
    {"utf-16", true, "The file is UTF-16, in which the connector finds no valid line."},
    {"line-too-long", true, "The line is longer than any record and was not checked."},
    {"unreadable", true, "The file, or the rest of it, cannot be read."},
    {"clamped", false, "A number is outside its range; the register gets the limit."},
    {"digits-lost", false, "A number has too many digits; the register gets the last ones, or the limit."},
    {"decimals-lost", false, "A quantity has more than three decimals; the register gets three."},
    {"too-long", false, "A value is too long for its place; the rest of the command is read wrongly."},
    {"quantity-zero", false, "A quantity is 0."},
    {"replaced", false, "A value is not accepted; the register gets another one."},
    {"text-cut", false, "A text is too long; the register gets its beginning."},
    {"blanked", false, "A text contains other characters than printable ASCII; the register gets blanks."},
    {"character-127", false, "A text contains the character 127, which cannot be printed."},
    {"logo-number", false, "The number of a logo is outside 1 to 99; the register may refuse it."},
    {"logo-empty", false, "The bitmap of a logo has a height of 0; the register gets nothing."},
    {"no-record", false, "No line of the file is a record; nothing is printed."},
    {"unused-text", false, "The command has no place for the text of this field."},
    {"lost-text", false, "A text has no separator behind it and is lost."},
    {"extra-text", false, "A text stands behind the ninth field and is ignored."},
    {"second-receipt", false,
     "The ticket has a second receipt, document or cash movement; if one of its lines fails, what is "
     "complete "
     "may be printed again."},
    {"receipt-open", false, "A receipt or document is not closed."},
    {"no-receipt", false, "The line belongs in a receipt or document, but none is open."},
    {"still-open", false, "The line is not allowed while a receipt or document is open."},
    {"hidden-type", false, "Something before a record type hides it from \"File Parser\"."},
    {"not-paid", false, "The payments do not cover the receipt."},
};

}  // namespace

std::span<const FindingCode> FindingCodes() { return kCodes; }

std::size_t PlaceOfCode(std::string_view code) {
  const auto found = std::find_if(std::begin(kCodes), std::end(kCodes),
                                  [&](const FindingCode& c) { return c.code == code; });
  if (found == std::end(kCodes)) throw std::logic_error("unknown finding " + std::string(code));
  return static_cast<std::size_t>(found - std::begin(kCodes));
}

}  // namespace orvenza
