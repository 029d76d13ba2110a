#pragma once

#include <array>
#include <string>

#include "core/catalogue.h"
#include "platform/profile_file.h"

namespace orvenza {

/// The texts of the register's errors, and the texts of the error dialog with the shop's own replacements.
class ErrorTexts {
 public:
  /// `errDescPath` is the path of `ErrDesc.ini`, which need not exist, nor be readable.
  ErrorTexts(const ProfileFile& profile, std::string errDescPath);

  /// The replacement of message `id` in `ErrDesc.ini`; empty when there is none. Never fails.
  std::string ErrorDescription(MessageId id) const;

  /// The replacement of message `id`, or else the catalogue's text.
  std::string MessageText(MessageId id) const;

  /// Fills the error table from the catalogue.
  void LoadEcrErrorTable();

  /// The register's error text by code, which stands in front of it; empty for 0 and 32 to 50. Throws
  /// SystemError 9 for a code outside 0 to 50.
  const std::string& EcrErrorText(int code) const;

 private:
  const ProfileFile& profile_;
  std::string errDescPath_;
  std::array<std::string, 51> ecrErrorText_;
};

}  // namespace orvenza
