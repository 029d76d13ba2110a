#include "lab/settings/recording_profile.h"

#include <algorithm>

#include "platform/ini_text.h"

namespace orvenza {
namespace {

bool IsSameKey(const ProfileValue& a, const std::string& section, const std::string& key) {
  return IsSameIniName(a.section, section) && IsSameIniName(a.key, key);
}

}  // namespace

class RecordingProfile::Content : public ProfileContent {
 public:
  explicit Content(const RecordingProfile& profile) : profile_(profile) {}

  std::optional<std::string> Value(const std::string& section, const std::string& key) const override {
    const ProfileValue* const written = profile_.FindWritten(section, key);
    const auto text = written == nullptr ? profile_.behind_.Value(section, key) : written->text;
    profile_.Note({{section, key, text.value_or("")}, !text});
    return text;
  }

 private:
  const RecordingProfile& profile_;
};

std::unique_ptr<ProfileContent> RecordingProfile::Load(const std::string&) const {
  return std::make_unique<Content>(*this);
}

void RecordingProfile::Write(const std::string&, const std::string& section, const std::string& key,
                             const std::string& value) {
  for (ProfileValue& written : written_) {
    if (!IsSameKey(written, section, key)) continue;
    written.text = value;
    return;
  }
  written_.push_back({section, key, value});
}

void RecordingProfile::WriteAll(const std::vector<ProfileValue>& values) {
  for (const ProfileValue& value : values) Write({}, value.section, value.key, value.text);
}

const ProfileValue* RecordingProfile::FindWritten(const std::string& section, const std::string& key) const {
  const auto found = std::find_if(written_.begin(), written_.end(),
                                  [&](const ProfileValue& value) { return IsSameKey(value, section, key); });
  return found == written_.end() ? nullptr : &*found;
}

void RecordingProfile::Note(const Asked& asked) const {
  const auto known = std::find_if(asked_.begin(), asked_.end(), [&](const Asked& earlier) {
    return IsSameKey(earlier.value, asked.value.section, asked.value.key);
  });
  if (known == asked_.end()) {
    asked_.push_back(asked);
  } else {
    *known = asked;
  }
}

}  // namespace orvenza
