#pragma once

#include <string_view>

#include "core/logs.h"
#include "device/device_link.h"

namespace orvenza {

/// One query of the register that shows nothing to the operator: sends `code` and `data` once. Any failure, a
/// register that is not there included, is one line in the error log.
[[nodiscard]] Reply QuietQuery(DeviceLink& link, Logs& logs, std::string_view code, std::string_view data);

/// The error-log text for the reply to a query that is no answer: silence, a link error, a device error, a
/// reply to something else.
[[nodiscard]] std::string QueryFailureText(const Reply& reply);

}  // namespace orvenza
