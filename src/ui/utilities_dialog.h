#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "core/journals.h"
#include "core/settings.h"
#include "platform/files.h"
#include "ui/operator.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The utilities dialog `Orv_Uti`: asks for the register's fiscal closure by leaving a request among the
/// tickets.
class UtilitiesDialog {
 public:
  /// `countWaitingTickets` tells how many tickets the input folder holds now; it may throw SystemError.
  UtilitiesDialog(Operator& person, OperatorMessages& messages, Files& files, Journals& journals,
                  const AppSettings& settings, std::function<std::size_t()> countWaitingTickets);

  /// Shows the dialog until the operator leaves it or has confirmed a closure; returns at once when it is
  /// open already. Throws ProgramEnd when the program is ended meanwhile.
  void Show();

  /// Writes the closure request into the ticket folder, under a name that sorts after every ticket: record
  /// type 22 (with the financial report) for kind 1, 21 for any other. Returns whether it is there; a failure
  /// goes to the error log.
  bool WriteClosureRequest(int kind);

  bool IsOpen() const { return open_; }

 private:
  bool OnButton(int button);
  bool RequestClosure(int kind);
  bool Confirmed(const std::string& question);
  bool TicketsWaiting();

  Operator& person_;
  OperatorMessages& messages_;
  Files& files_;
  Journals& journals_;
  const AppSettings& settings_;
  std::function<std::size_t()> countWaitingTickets_;
  bool open_ = false;
};

}  // namespace orvenza
