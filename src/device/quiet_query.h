#pragma once

#include <string_view>

#include "core/logs.h"
#include "device/device_link.h"

namespace orvenza {

/// Queries the register without any dialog: sends `code` and `data` once. Any failure, including an absent
/// register, is one line in the error log.
[[nodiscard]] Reply QuietQuery(DeviceLink& link, Logs& logs, std::string_view code, std::string_view data);

/// The error-log text for an unusable reply to a query: silence, a link error, a device error, or a reply to
/// another command.
[[nodiscard]] std::string QueryFailureText(const Reply& reply);

}  // namespace orvenza
