#include "ui/choice_dialog.h"

namespace orvenza {

int ShowChoiceDialog(Operator& person, const ChoiceContent& content) {
  int operatorChoice = person.ShowChoice(content).value_or(0);
  // Callers number the options from 2 when the frame is visible.
  if (operatorChoice != 0 && content.frameVisible) ++operatorChoice;
  return operatorChoice;
}

}  // namespace orvenza
