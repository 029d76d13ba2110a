#include "device/quiet_query.h"

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {

bool QuietQuery(DeviceLink& link, Logs& logs, std::string_view code, std::string_view data) {
  if (!link.Present()) {
    link.ReplyText.clear();
    logs.WrErr(LoadMessage(MessageId::kDeviceOff));
    return false;
  }
  link.Transmit(std::string(code).append(data));
  if (link.ReplyText.starts_with(code)) return true;
  logs.WrErr(QueryFailureText(link.ReplyText, code));
  return false;
}

std::string QueryFailureText(std::string_view reply, std::string_view code) {
  if (reply.starts_with(code)) return {};
  if (reply.empty()) return LoadMessage(MessageId::kNoReply);
  const std::string shown = FromWindows1252(reply);
  if (IsLinkError(reply)) return LoadMessage(MessageId::kCommunicationError) + " " + shown;
  if (IsErrorReply(reply)) return LoadMessage(MessageId::kEcrError) + " " + shown;
  return LoadMessage(MessageId::kWrongReply);
}

}  // namespace orvenza
