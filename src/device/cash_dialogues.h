#pragma once

#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The result of a status query.
struct CashStatus {
  bool receiptOpen = false;  ///< Also false if the status could not be read.
  Reply unread;              ///< The last reply if the status could not be read; otherwise silence.
};

/// The fixed dialogues with the register. Each waits without limit for the register to be ready before every
/// transmission, and reports failures only in the error log.
class CashDialogues {
 public:
  CashDialogues(DeviceLink& link, const AppSettings& settings, Logs& logs, OperatorMessages& messages,
                EventLoop& loop, ClockCorrection& clockCorrection)
      : link_(link),
        settings_(settings),
        logs_(logs),
        messages_(messages),
        loop_(loop),
        clockCorrection_(clockCorrection) {}

  /// Queries the register's status, up to ten times. If no receipt is open, the correction of the PC's clock
  /// follows, if enabled.
  [[nodiscard]] CashStatus QueryCashStatus();

  /// Restarts printing after paper-out and waits until the register answers a status query again.
  void InvioRIAVVIO();

  /// Voids the whole receipt in progress. If that fails, lets the operator decide whether to close it.
  /// Returns the last reply; silence if no receipt is open or it stays open.
  Reply InvioVOID();

  /// Voids a receipt left open, if any, until the register has none. After some attempts the operator may
  /// have it closed by a payment instead. Throws ProgramEnd between two attempts.
  void CloseReceiptLeftOpen();

  /// Voids the receipt that the register interrupted, if it is still open. Returns whether it was.
  [[nodiscard]] bool VoidInterruptedReceipt();

 private:
  void CorrectClock();
  void AwaitStatus();
  Reply PauseAfterVoid(const Reply& reply);
  [[nodiscard]] bool OperatorWantsAutomaticClose();
  void LogReply(const Reply& reply);

  DeviceLink& link_;
  const AppSettings& settings_;
  Logs& logs_;
  OperatorMessages& messages_;
  EventLoop& loop_;
  ClockCorrection& clockCorrection_;
};

}  // namespace orvenza
