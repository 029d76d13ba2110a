#include "device/quiet_query.h"

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {

Reply QuietQuery(DeviceLink& link, Logs& logs, std::string_view code, std::string_view data) {
  if (!link.Present()) {
    logs.WrErr(LoadMessage(MessageId::kDeviceOff));
    return {};
  }
  const Reply reply = link.Transmit(std::string(code).append(data));
  if (!reply.Is(Reply::Kind::kDone)) logs.WrErr(QueryFailureText(reply));
  return reply;
}

std::string QueryFailureText(const Reply& reply) {
  if (reply.Is(Reply::Kind::kSilence)) return LoadMessage(MessageId::kNoReply);
  if (!reply.IsError()) return LoadMessage(MessageId::kWrongReply);
  const std::string shown = " " + FromWindows1252(reply.Text());
  return (reply.Is(Reply::Kind::kLinkError) ? LoadMessage(MessageId::kCommunicationError)
                                            : LoadMessage(MessageId::kEcrError)) +
         shown;
}

}  // namespace orvenza
