#pragma once

#include <array>
#include <string>

#include "core/catalogue.h"
#include "platform/profile_file.h"

namespace orvenza {

/// The texts of the register's errors, and those of the error dialog with the shop's own replacements.
class ErrorTexts {
 public:
  /// `errDescPath` is the path of `ErrDesc.ini`, which may be missing or unreadable.
  ErrorTexts(const ProfileFile& profile, std::string errDescPath);

  /// The replacement of message `id` in `ErrDesc.ini`; empty when there is none. Never fails.
  std::string ErrorDescription(MessageId id) const;

  /// The replacement of message `id`, otherwise the catalogue's text.
  std::string MessageText(MessageId id) const;

  /// Fills the error table from the catalogue.
  void LoadEcrErrorTable();

  /// The register's error text for `code`, preceded by the code; empty for 0 and 32 to 50. Throws SystemError
  /// 9 for a code outside 0 to 50.
  const std::string& EcrErrorText(int code) const;

 private:
  const ProfileFile& profile_;
  std::string errDescPath_;
  std::array<std::string, 51> ecrErrorText_;
};

}  // namespace orvenza
