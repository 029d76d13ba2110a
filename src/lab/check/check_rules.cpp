#include "lab/check/check_rules.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "core/text.h"
#include "lab/settings/settings_review.h"
#include "lab/shell/wording.h"
#include "tickets/model_rules.h"

namespace orvenza {
namespace {

constexpr std::size_t kLabelWidth = 10;

void TakeSettings(const std::string& folder, const std::string& name, LabSurroundings& surroundings,
                  CheckRules& rules) {
  const ProgramPaths paths{surroundings.machine.FullFolder(folder), name};
  const SettingsReview review = ReviewSettings(surroundings.files, surroundings.clock, paths);
  if (review.state == SettingsReview::State::kNew || review.state == SettingsReview::State::kUnreadable) {
    if (!surroundings.folders.Exists(paths.AppPath + "\\")) {
      throw std::runtime_error("'" + folder + "' is not a folder");
    }
    throw std::runtime_error("there is no " + name + ".ini that can be read in the folder '" + folder + "'");
  }
  if (review.state == SettingsReview::State::kWrongVersion) {
    rules.settingsNote = name + ".ini in '" + folder + "' is of version " + Quoted(review.version) +
                         ", which ends the connector's start";
  }
  rules.settings = review.settings;
}

/// A character code, or the character itself if it is not a digit. Throws UsageError for anything else.
int SeparatorOf(const std::string& text) {
  if (text.size() == 1 && (text[0] < '0' || text[0] > '9')) return static_cast<unsigned char>(text[0]);
  int code = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), code);
  if (error == std::errc() && end == text.data() + text.size() && code >= 0 && code <= 255) return code;
  throw UsageError("--separator '" + text + "': expected a code from 32 to 127 or one character");
}

bool IsUsable(int separator) { return separator >= ' ' && separator <= 127; }

std::string NeverFound(const std::string& shown) {
  return "the separator " + shown +
         " is never found in a line: it must be a character code from 32 to 127, for only these stay as they "
         "are";
}

/// `label` in capitals, with single blanks inside and none at its ends.
std::string Squeezed(std::string_view label) {
  std::string squeezed;
  for (const char c : ToUpperAscii(Trim(label))) {
    if (c != ' ' || squeezed.back() != ' ') squeezed += c;
  }
  return squeezed;
}

std::vector<std::string_view> KnownModels() {
  std::vector<std::string_view> known = ModelsWithRules();
  known.push_back(kModelDrivenAsAnother);
  return known;
}

}  // namespace

std::vector<Option> CheckRuleOptions() {
  return {
      {"--folder", "DIR",
       "take separator, \"Single Quantity\" and \"File Parser\"\nfrom the settings of the installation in "
       "DIR"},
      {"--name", "NAME",
       "the connector's executable in DIR without extension;\nits settings file has the same name (default: "
       "Orvenza)"},
      {"--separator", "N", "character code of the field separator, or the\ncharacter itself (default: 127)"},
      {"--single-quantity", "", "as if the setting \"Single Quantity\" were on"},
      {"--model", "LABEL", "the register's model, for example \"TOVEST ETH\""},
      {"--release", "TEXT", "its release, for example \"2.02.00\""},
  };
}

RegisterIdentity IdentityOf(const std::string& model, const std::string& release) {
  RegisterIdentity identity;
  identity.DeviceModel = model;
  for (const std::string_view known : KnownModels()) {
    if (Squeezed(known) == Squeezed(model)) identity.DeviceModel = DrivenAs(known);
  }
  identity.DeviceModel.resize(std::max(identity.DeviceModel.size(), kLabelWidth), ' ');
  identity.DeviceRelease = release;
  identity.DeviceReleaseNumber = ReleaseNumber(release);
  return identity;
}

std::string UnknownModelNote(const std::string& model) {
  std::vector<std::string> names;
  for (const std::string_view known : KnownModels()) names.push_back(Squeezed(known));
  const std::string name = Squeezed(model);
  if (name.empty() || std::find(names.begin(), names.end(), name) != names.end()) return {};
  std::string note =
      "no model '" + model + "' is known, so the rules for any other count" + Hint(name, names);
  for (std::size_t i = 0; i < names.size(); ++i) note += (i == 0 ? "\nKnown: " : ", ") + names[i];
  return note;
}

char SeparatorNamed(const std::string& text) {
  const int code = SeparatorOf(text);
  if (!IsUsable(code)) throw UsageError(NeverFound("'" + text + "'"));
  return static_cast<char>(code);
}

void RequireUsableSeparator(const AppSettings& settings) {
  const int separator = static_cast<unsigned char>(settings.SeparatorChar);
  if (IsUsable(separator)) return;
  throw std::runtime_error(NeverFound("of the settings, " + std::to_string(separator) + ","));
}

CheckRules CheckRulesOf(const Arguments& arguments, LabSurroundings& surroundings) {
  CheckRules rules;
  if (const auto folder = arguments.Value("--folder")) {
    TakeSettings(*folder, arguments.Value("--name").value_or("Orvenza"), surroundings, rules);
  }
  if (const auto separator = arguments.Value("--separator")) {
    rules.settings.SeparatorChar = SeparatorNamed(*separator);
  }
  RequireUsableSeparator(rules.settings);
  if (arguments.Has("--single-quantity")) rules.settings.SingleQuantity = true;
  const std::string model = arguments.Value("--model").value_or("");
  if (model.size() > kLabelWidth) throw UsageError("the model '" + model + "' has more than ten characters");
  rules.identity = IdentityOf(model, arguments.Value("--release").value_or(""));
  return rules;
}

}  // namespace orvenza
