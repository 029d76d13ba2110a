#include "device/error_texts.h"

#include "core/settings.h"
#include "platform/system_error.h"

namespace orvenza {

ErrorTexts::ErrorTexts(const ProfileFile& profile, std::string errDescPath)
    : profile_(profile), errDescPath_(std::move(errDescPath)) {}

std::string ErrorTexts::ErrorDescription(MessageId id) const {
  try {
    return ReadProfileValue(*profile_.Load(errDescPath_), "Error Description", std::to_string(NumberOf(id)));
  } catch (const SystemError&) {
    return {};
  }
}

std::string ErrorTexts::MessageText(MessageId id) const {
  const std::string replacement = ErrorDescription(id);
  return replacement.empty() ? LoadMessage(id) : replacement;
}

void ErrorTexts::LoadEcrErrorTable() {
  for (int code = 1; code <= 31; ++code)
    ecrErrorText_[static_cast<std::size_t>(code)] = LoadMessage(EcrErrorMessage(code));
}

const std::string& ErrorTexts::EcrErrorText(int code) const {
  const auto index = static_cast<std::size_t>(code);
  if (code < 0 || index >= ecrErrorText_.size()) {
    throw SystemError(error_number::kSubscriptOutOfRange, "EcrErrorText " + std::to_string(code));
  }
  return ecrErrorText_[index];
}

}  // namespace orvenza
