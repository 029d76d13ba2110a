#include "device/end_confirmation.h"

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {

bool ConfirmEnd(OperatorMessages& messages, int icon) {
  const std::string question = LoadMessage(153) + std::string(kLineBreak) + LoadMessage(154);
  const int style = message_style::kYesNo + icon + message_style::kSecondDefault;
  return messages.ShowOperatorMessage(question, style, LoadMessage(152)) == message_result::kYes;
}

}  // namespace orvenza
