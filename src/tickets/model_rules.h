#pragma once

#include <string_view>
#include <vector>

#include "device/register_identity.h"

namespace orvenza {

/// A model's command and text width for the three text records that differ between models.
struct ModelRules {
  std::string_view code17;  ///< "1068" or "1082".
  int width17;
  std::string_view code24;  ///< "1066" or "1081".
  int width24;
  int width30;
};

/// The rules for the register as currently known; an unknown model has those of "any other model".
ModelRules RulesFor(const RegisterIdentity& identity);

/// The labels of the models with rules of their own, ten characters each.
std::vector<std::string_view> ModelsWithRules();

}  // namespace orvenza
