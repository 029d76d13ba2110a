#pragma once

#include <string>

#include "core/logs.h"
#include "ui/operator_message.h"
#include "ui/port_dialog.h"

namespace orvenza {

/// What the operator is told and asked about the link to the register. Alarms and questions go to the
/// error log too.
class LinkDialogs {
 public:
  LinkDialogs(OperatorMessages& messages, PortDialog& portDialog, Logs& logs)
      : messages_(messages), portDialog_(portDialog), logs_(logs) {}

  /// The register is switched off or not connected.
  void AlarmAbsent();

  /// An open receipt is about to be voided.
  void AnnounceVoid();

  /// Shows `text` with the choice to try again, to change the port settings first, or to give up. Returns
  /// whether to try again: false only after a clear yes to the end of the program.
  [[nodiscard]] bool AskRetry(const std::string& text);

 private:
  OperatorMessages& messages_;
  PortDialog& portDialog_;
  Logs& logs_;
};

}  // namespace orvenza
