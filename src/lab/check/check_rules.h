#pragma once

#include <string>
#include <vector>

#include "lab/check/ticket_check.h"
#include "lab/shell/command.h"

namespace orvenza {

/// The options by which tickets are checked.
std::vector<Option> CheckRuleOptions();

/// What those options ask for; what they leave open is as the settings in --folder say, or else as in a new
/// installation. Nothing is written. Throws UsageError with the reason for values that make no sense,
/// std::runtime_error where the settings do not.
CheckRules CheckRulesOf(const Arguments& arguments, LabSurroundings& surroundings);

/// A register of this model and release. The label's blanks need not be those of the register.
RegisterIdentity IdentityOf(const std::string& model, const std::string& release);

/// What is to be said of a model without rules of its own, which may be a slip of the pen; "" for others and
/// for none.
std::string UnknownModelNote(const std::string& model);

}  // namespace orvenza
