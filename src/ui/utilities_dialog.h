#pragma once

#include <cstddef>
#include <string>

#include "core/logs.h"
#include "ui/operator.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The utilities dialog's view of the tickets in the input folder.
class WaitingTickets {
 public:
  virtual ~WaitingTickets() = default;

  /// Number of waiting tickets. Throws SystemError.
  virtual std::size_t CountWaitingTickets() = 0;

  /// Adds the closure request at the end of the queue, with the financial report for kind 1. Returns whether
  /// it was written; a failure goes to the error log.
  virtual bool WriteClosureRequest(int kind) = 0;
};

/// The utilities dialog `Orv_Uti`. It requests the register's fiscal closure, which is a ticket too.
class UtilitiesDialog {
 public:
  UtilitiesDialog(Operator& person, OperatorMessages& messages, Logs& logs, WaitingTickets& tickets)
      : person_(person), messages_(messages), logs_(logs), tickets_(tickets) {}

  /// Shows the dialog until the operator leaves it or confirms a closure; returns at once when it is already
  /// open. Throws ProgramEnd if the program ends meanwhile.
  void Show();

 private:
  bool OnButton(int button);
  bool RequestClosure(int kind);
  bool Confirmed(const std::string& question);
  bool TicketsWaiting();

  Operator& person_;
  OperatorMessages& messages_;
  Logs& logs_;
  WaitingTickets& tickets_;
  bool open_ = false;
};

}  // namespace orvenza
