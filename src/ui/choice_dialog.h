#pragma once

#include "ui/operator.h"

namespace orvenza {

/// Shows the choice dialog and returns `OperatorChoice`: 0 when it was closed without its button or no option
/// was selected, else the number of the selected option, counted from 1 and shifted by one more when the
/// options' frame is visible. Throws ProgramEnd when the program is ended meanwhile.
int ShowChoiceDialog(Operator& person, const ChoiceContent& content);

}  // namespace orvenza
