#pragma once

#include <cstddef>
#include <string>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/files.h"
#include "ui/operator.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The utilities dialog's view of the tickets in the input folder.
class WaitingTickets {
 public:
  virtual ~WaitingTickets() = default;

  /// Number of waiting tickets. Throws SystemError.
  virtual std::size_t CountWaitingTickets() = 0;

  /// Moves the file `name` of the input folder to the end of the queue, regardless of file times. Throws
  /// SystemError.
  virtual void PutLast(const std::string& name) = 0;
};

/// The utilities dialog `Orv_Uti`. It requests the register's fiscal closure by writing a closure ticket.
class UtilitiesDialog {
 public:
  UtilitiesDialog(Operator& person, OperatorMessages& messages, Files& files, Logs& logs,
                  const AppSettings& settings, WaitingTickets& tickets);

  /// Shows the dialog until the operator leaves it or confirms a closure; returns at once when it is already
  /// open. Throws ProgramEnd when the program is ended meanwhile.
  void Show();

  /// Writes the closure request into the ticket folder, under a name that sorts after every ticket: record
  /// type 22 (with the financial report) for kind 1, otherwise 21. Returns whether it was written; a failure
  /// goes to the error log.
  bool WriteClosureRequest(int kind);

 private:
  bool OnButton(int button);
  bool RequestClosure(int kind);
  bool Confirmed(const std::string& question);
  bool TicketsWaiting();

  Operator& person_;
  OperatorMessages& messages_;
  Files& files_;
  Logs& logs_;
  const AppSettings& settings_;
  WaitingTickets& tickets_;
  bool open_ = false;
};

}  // namespace orvenza
