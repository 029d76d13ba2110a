#include "lab/settings/known_settings.h"

#include <algorithm>
#include <utility>

#include "core/settings.h"
#include "platform/ini_text.h"

namespace orvenza {
namespace {

bool Holds(const std::vector<std::string>& names, const std::string& name) {
  return std::any_of(names.begin(), names.end(), [&](const auto& n) { return IsSameIniName(n, name); });
}

}  // namespace

KnownSettings::KnownSettings() : KnownSettings(DefaultSettings({})) {}

KnownSettings::KnownSettings(std::vector<ProfileValue> values) : values_(std::move(values)) {
  for (ProfileValue& value : OptionalSettings()) values_.push_back(std::move(value));
}

std::vector<std::string> KnownSettings::Sections() const {
  std::vector<std::string> names;
  for (const auto& value : values_) {
    if (names.empty() || names.back() != value.section) names.push_back(value.section);
  }
  return names;
}

std::vector<std::string> KnownSettings::Keys(const std::string& section) const {
  std::vector<std::string> names;
  for (const auto& value : values_) {
    if (IsSameIniName(value.section, section)) names.push_back(value.key);
  }
  return names;
}

bool KnownSettings::HasSection(const std::string& section) const { return Holds(Sections(), section); }

bool KnownSettings::HasKey(const std::string& section, const std::string& key) const {
  return Holds(Keys(section), key);
}

std::string KnownSettings::SectionOf(const std::string& key) const {
  const auto found = std::find_if(values_.begin(), values_.end(),
                                  [&](const auto& value) { return IsSameIniName(value.key, key); });
  return found == values_.end() ? std::string() : found->section;
}

}  // namespace orvenza
