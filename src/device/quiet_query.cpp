#include "device/quiet_query.h"

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {

bool QuietQuery(DeviceLink& link, Logs& logs, std::string_view code, std::string_view data) {
  if (!link.Present()) {
    link.ReplyText.clear();
    logs.WrErr(LoadMessage(150));
    return false;
  }
  link.Transmit(std::string(code).append(data));
  if (link.ReplyText.starts_with(code)) return true;
  logs.WrErr(QueryFailureText(link.ReplyText, code));
  return false;
}

std::string QueryFailureText(std::string_view reply, std::string_view code) {
  if (reply.starts_with(code)) return {};
  if (reply.empty()) return LoadMessage(143);
  const std::string shown = FromWindows1252(reply);
  if (IsLinkError(reply)) return LoadMessage(128) + " " + shown;
  if (IsErrorReply(reply)) return LoadMessage(117) + " " + shown;
  return LoadMessage(144);
}

}  // namespace orvenza
