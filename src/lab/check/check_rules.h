#pragma once

#include <string>
#include <vector>

#include "lab/check/ticket_check.h"
#include "lab/shell/command.h"

namespace orvenza {

/// The options that select the rules of a check.
std::vector<Option> CheckRuleOptions();

/// The rules selected by those options. Defaults come from the settings in --folder, otherwise from a new
/// installation. Writes nothing. Throws UsageError with the reason for invalid values, std::runtime_error for
/// unusable settings.
CheckRules CheckRulesOf(const Arguments& arguments, LabSurroundings& surroundings);

/// The separator that the value of --separator names: its code from 32 to 127, or the character itself.
/// Throws UsageError for anything else.
char SeparatorNamed(const std::string& text);

/// Throws std::runtime_error if no line can hold the separator of the settings.
void RequireUsableSeparator(const AppSettings& settings);

/// A register of this model and release. The blanks in the label need not match the register's.
RegisterIdentity IdentityOf(const std::string& model, const std::string& release);

/// A note if the model has no rules of its own, as it may be misspelled; otherwise "".
std::string UnknownModelNote(const std::string& model);

}  // namespace orvenza
