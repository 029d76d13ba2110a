// The values of ticket lines. Property: a form returns nothing or a text of its width, made of allowed
// characters.

#include <algorithm>
#include <string>

#include "choices.h"
#include "core/text.h"
#include "targets.h"
#include "tickets/field_format.h"

namespace orvenza::fuzz {
namespace {

constexpr ValueForm kForms[] = {
    FmtNum2Max20,   FmtNum2Max10, FmtNum2Range10,  FmtNum2Range40,   FmtNum2Max40,     FmtNum2Upto10,
    FmtNum4Max1260, FmtNum4Min1,  FmtNum4Range200, FmtNum4Range9999, FmtNum5Range9999, FmtAmount9,
    FmtDigit0to5,   FmtDigit0to3, FmtDigit0to9,    FmtQuantity,      NumberWithin(7),  NumberWithin(99),
    TextOf(1),      TextOf(16),   TextOf(40)};

/// Amounts and quantities are never shortened, and a digit keeps its leading zeros.
bool MayBeLonger(const ValueForm& form) {
  return form.kind == ValueKind::kAmount || form.kind == ValueKind::kQuantity ||
         form.kind == ValueKind::kDigit;
}

bool HoldsItsRange(const ValueForm& form, const std::string& value) {
  const bool hasRange =
      form.kind != ValueKind::kText && form.kind != ValueKind::kAmount && form.kind != ValueKind::kQuantity;
  if (!hasRange || value == form.outside) return true;
  const int number = LeadingInteger(value);
  return number >= form.lowest && number <= form.highest;
}

}  // namespace

void FuzzFormats(std::string_view input) {
  Choices choices(input);
  const ValueForm& form = choices.Of(kForms);
  const std::string value = form(choices.Rest());
  if (value.empty()) return;
  const auto width = static_cast<std::size_t>(form.width);
  Require(value.size() == width || (MayBeLonger(form) && value.size() > width), "a value has its width");
  Require(form.kind == ValueKind::kText || OnlyDigits(value), "a value that is no text consists of digits");
  Require(HoldsItsRange(form, value), "a value is within its range");
}

}  // namespace orvenza::fuzz
