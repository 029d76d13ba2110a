#pragma once

#include <string>

#include "simulator/scripted_operator.h"

namespace orvenza {

/// A dialog on one line: its caption, its icon, what it says with " / " for line breaks, its options with
/// "(*)" before the one selected at first, and its buttons in brackets.
std::string DialogText(const ShownDialog& dialog);

}  // namespace orvenza
