#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "core/text.h"

namespace orvenza {

/// The numeric value of a release text: its last seven characters with every "." as a blank, read as a number
/// ignoring blanks. "2.02.00" gives 20200; a text that does not start with a number gives 0.
inline double ReleaseNumber(std::string_view release) {
  std::string tail(Right(release, 7));
  std::replace(tail.begin(), tail.end(), '.', ' ');
  return LeadingNumber(tail);
}

/// A model that is deliberately driven exactly like another.
inline constexpr std::string_view kModelDrivenAsAnother = " 40 ZAFRON";

/// The model whose rules apply to a register of `model`.
inline std::string_view DrivenAs(std::string_view model) {
  return model == kModelDrivenAsAnother ? "  MELDANO " : model;
}

/// The register's identity, learned at start-up. It decides how some records are translated.
struct RegisterIdentity {
  std::string DeviceModel =
      std::string(10, ' ');        ///< Ten characters, blanks included; all blanks when unknown.
  std::string DeviceRelease;       ///< As the register spells it, at most ten characters.
  double DeviceReleaseNumber = 0;  ///< ReleaseNumber of DeviceRelease.
};

}  // namespace orvenza
