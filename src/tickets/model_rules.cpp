#include "tickets/model_rules.h"

#include <algorithm>
#include <limits>

#include "core/text.h"

namespace orvenza {
namespace {

/// The release of `  315 KV  `, read from the text itself without blanks and dots around it.
double TrimmedReleaseNumber(const RegisterIdentity& identity) {
  std::string release = identity.DeviceRelease;
  std::replace(release.begin(), release.end(), '.', ' ');
  return ReleaseNumber(Trim(release));
}

double KnownReleaseNumber(const RegisterIdentity& identity) { return identity.DeviceReleaseNumber; }

/// A model that accepts wider texts than the others: from release `wideFrom` on for types 17 and 24, always
/// for type 30.
struct WideModel {
  std::string_view label;
  double (*release)(const RegisterIdentity&);
  double wideFrom;
  int width;
};

constexpr double kAnyRelease = std::numeric_limits<double>::lowest();

// The width of 32 for `  MELDANO `, against 37 for the others, is deliberate.
constexpr WideModel kWideModels[] = {
    {"  TOVEST 8", KnownReleaseNumber, kAnyRelease, 37}, {"TOVEST ETH", KnownReleaseNumber, kAnyRelease, 37},
    {"  315 KV  ", TrimmedReleaseNumber, 100, 37},       {"QUARNIS  A", KnownReleaseNumber, 20200, 37},
    {"  MELDANO ", KnownReleaseNumber, 20400, 32},
};

}  // namespace

ModelRules RulesFor(const RegisterIdentity& identity) {
  ModelRules rules{"1068", 27, "1066", 16, 27};
  for (const WideModel& model : kWideModels) {
    if (identity.DeviceModel != model.label) continue;
    rules.width30 = model.width;
    if (model.release(identity) >= model.wideFrom) {
      rules.code17 = "1082";
      rules.width17 = model.width;
      rules.code24 = "1081";
      rules.width24 = 27;
    }
  }
  return rules;
}

std::vector<std::string_view> ModelsWithRules() {
  std::vector<std::string_view> labels;
  for (const WideModel& model : kWideModels) labels.push_back(model.label);
  return labels;
}

}  // namespace orvenza
