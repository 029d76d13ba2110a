#include "ui/end_confirmation.h"

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {

bool ConfirmEnd(OperatorMessages& messages, MessageIcon icon) {
  const std::string question = LoadMessage(MessageId::kNoReceiptsAfterEnd) + std::string(kLineBreak) +
                               LoadMessage(MessageId::kAreYouSure);
  const MessageStyle style{icon, MessageButtons::kYesNo, DefaultButton::kSecond};
  return messages.ShowOperatorMessage(question, style, LoadMessage(MessageId::kEndRequest)) ==
         MessageResult::kYes;
}

}  // namespace orvenza
