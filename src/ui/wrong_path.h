#pragma once

#include <string>

#include "core/logs.h"
#include "ui/operator_message.h"

namespace orvenza {

/// Says, in the error log and to the operator, that `folder` of the settings cannot be made and that the
/// program is going to end. Ending it is the caller's part.
void ReportWrongPath(OperatorMessages& messages, Logs& logs, const std::string& folder);

/// The same of a settings file that is there and cannot be read.
void ReportUnreadableSettings(OperatorMessages& messages, Logs& logs, const std::string& path);

}  // namespace orvenza
