#pragma once

#include <string>

#include "core/logs.h"
#include "ui/operator_message.h"
#include "ui/port_dialog.h"

namespace orvenza {

/// Messages and questions to the operator about the link to the register. Alarms and questions are also
/// written to the error log.
class LinkDialogs {
 public:
  LinkDialogs(OperatorMessages& messages, PortDialog& portDialog, Logs& logs)
      : messages_(messages), portDialog_(portDialog), logs_(logs) {}

  /// Warns that the register is switched off or not connected.
  void AlarmAbsent();

  /// Announces that an open receipt will be voided.
  void AnnounceVoid();

  /// Shows `text` with the options to retry, to change the port settings first, or to give up. Returns
  /// whether to retry: false only after an explicit yes to ending the program.
  [[nodiscard]] bool AskRetry(const std::string& text);

 private:
  OperatorMessages& messages_;
  PortDialog& portDialog_;
  Logs& logs_;
};

}  // namespace orvenza
