#pragma once

#include "ui/operator.h"

namespace orvenza {

/// Shows the choice dialog and returns `OperatorChoice`: 0 when the dialog was closed without its button or
/// no option was selected, otherwise the number of the selected option, counted from 1, or from 2 when the
/// options' frame is visible. Throws ProgramEnd if the program ends meanwhile.
[[nodiscard]] int ShowChoiceDialog(Operator& person, const ChoiceContent& content);

}  // namespace orvenza
