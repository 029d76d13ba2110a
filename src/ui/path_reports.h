#pragma once

#include <string>

#include "core/logs.h"
#include "ui/operator_message.h"

namespace orvenza {

/// Reports to the error log and the operator that `folder` from the settings cannot be created and that the
/// program is about to end. The caller ends it.
void ReportWrongPath(OperatorMessages& messages, Logs& logs, const std::string& folder);

/// The same for a settings file that exists but cannot be read.
void ReportUnreadableSettings(OperatorMessages& messages, Logs& logs, const std::string& path);

}  // namespace orvenza
