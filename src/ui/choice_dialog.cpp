#include "ui/choice_dialog.h"

namespace orvenza {

int ShowChoiceDialog(Operator& person, const ChoiceContent& content) {
  int operatorChoice = person.ShowChoice(content).value_or(0);
  // The readers of the choice count from 2 when the options could be seen.
  if (operatorChoice != 0 && content.frameVisible) ++operatorChoice;
  return operatorChoice;
}

}  // namespace orvenza
