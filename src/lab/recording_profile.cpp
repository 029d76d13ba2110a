#include "lab/recording_profile.h"

#include <algorithm>

#include "platform/ini_profile_file.h"

namespace orvenza {
namespace {

/// What no value of a settings file is: tells a missing value from any other.
constexpr const char* kMissing = "\x01missing\x01";

bool IsSameKey(const RecordingProfile::Value& a, const std::string& section, const std::string& key) {
  return IsSameIniName(a.section, section) && IsSameIniName(a.key, key);
}

}  // namespace

std::string RecordingProfile::Read(const std::string& path, const std::string& section,
                                   const std::string& key, const std::string& fallback) const {
  const Asked answer = Look(path, section, key, fallback);
  const auto known = std::find_if(asked_.begin(), asked_.end(),
                                  [&](const Asked& asked) { return IsSameKey(asked.value, section, key); });
  if (known == asked_.end()) {
    asked_.push_back(answer);
  } else {
    *known = answer;
  }
  return answer.value.text;
}

void RecordingProfile::Write(const std::string&, const std::string& section, const std::string& key,
                             const std::string& value) {
  for (Value& written : written_) {
    if (!IsSameKey(written, section, key)) continue;
    written.text = value;
    return;
  }
  written_.push_back({section, key, value});
}

RecordingProfile::Asked RecordingProfile::Look(const std::string& path, const std::string& section,
                                               const std::string& key, const std::string& fallback) const {
  for (const Value& written : written_) {
    if (IsSameKey(written, section, key)) return {written, false};
  }
  const std::string text = behind_ == nullptr ? kMissing : behind_->Read(path, section, key, kMissing);
  const bool missing = text == kMissing;
  return {{section, key, missing ? fallback : text}, missing};
}

}  // namespace orvenza
