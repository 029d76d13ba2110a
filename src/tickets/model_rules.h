#pragma once

#include <string_view>
#include <vector>

#include "device/register_identity.h"

namespace orvenza {

/// The command and text width that a register's model uses for the three text records that differ from model
/// to model.
struct ModelRules {
  std::string_view code17;  ///< "1068" or "1082".
  int width17;
  std::string_view code24;  ///< "1066" or "1081".
  int width24;
  int width30;
};

/// The rules of the register as it is known now; those of "any other model" for an unknown one.
ModelRules RulesFor(const RegisterIdentity& identity);

/// The labels of the models with rules of their own, each of ten characters.
std::vector<std::string_view> ModelsWithRules();

}  // namespace orvenza
