#include "device/link_dialogs.h"

#include "core/catalogue.h"
#include "core/text.h"
#include "ui/end_confirmation.h"

namespace orvenza {

void LinkDialogs::AlarmAbsent() {
  logs_.WrErr(LoadMessage(MessageId::kDeviceOff));
  messages_.ShowOperatorMessage(LoadMessage(MessageId::kDeviceOff), {MessageIcon::kStop},
                                LoadMessage(MessageId::kCommunicationWarning));
}

void LinkDialogs::AnnounceVoid() {
  const std::string text =
      LoadMessage(MessageId::kSendingVoid) + std::string(kLineBreak) + LoadMessage(MessageId::kCheckKey);
  messages_.ShowOperatorMessage(text, {MessageIcon::kExclamation}, LoadMessage(MessageId::kWarning));
}

bool LinkDialogs::AskRetry(const std::string& text) {
  logs_.WrErr(std::string(text));
  const MessageResult answer =
      messages_.ShowOperatorMessage(text, {MessageIcon::kInformation, MessageButtons::kRetryCancelConfigure},
                                    LoadMessage(MessageId::kCommunicationWarning));
  if (answer == MessageResult::kConfigure) portDialog_.Show();
  if (answer != MessageResult::kCancel || !ConfirmEnd(messages_, MessageIcon::kStop)) return true;
  logs_.WrErr(LoadMessage(MessageId::kLinkCancelled));
  return false;
}

}  // namespace orvenza
