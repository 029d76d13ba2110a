#pragma once

#include <string>
#include <string_view>

#include "lab/scenario.h"

namespace orvenza {

/// A deed as the transcript shows it: the kind of event, and what it says.
std::string_view DeedKindText(const Deed& deed);
std::string DeedText(const Deed& deed);

}  // namespace orvenza
