#pragma once

#include <string>

#include "simulator/scripted_operator.h"

namespace orvenza {

/// A dialog on one line: caption, icon, text with " / " for line breaks, options with "(*)" before the
/// preselected one, and buttons in brackets.
std::string DialogText(const ShownDialog& dialog);

}  // namespace orvenza
