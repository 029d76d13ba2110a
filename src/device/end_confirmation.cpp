#include "device/end_confirmation.h"

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {

bool ConfirmEnd(OperatorMessages& messages, int icon) {
  const std::string question = LoadMessage(MessageId::kNoReceiptsAfterEnd) + std::string(kLineBreak) +
                               LoadMessage(MessageId::kAreYouSure);
  const int style = message_style::kYesNo + icon + message_style::kSecondDefault;
  return messages.ShowOperatorMessage(question, style, LoadMessage(MessageId::kEndRequest)) ==
         message_result::kYes;
}

}  // namespace orvenza
