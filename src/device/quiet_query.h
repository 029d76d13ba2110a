#pragma once

#include <string_view>

#include "core/logs.h"
#include "device/device_link.h"

namespace orvenza {

/// One query of the register that shows nothing to the operator: sends `code` and `data` once and returns
/// whether the reply, in `ReplyText`, is an answer to it. Any failure is one line in the error log.
bool QuietQuery(DeviceLink& link, Logs& logs, std::string_view code, std::string_view data);

/// The error-log text for a reply to the query `code` that is no answer: silence, a link error, a device
/// error, a reply to something else.
std::string QueryFailureText(std::string_view reply, std::string_view code);

}  // namespace orvenza
