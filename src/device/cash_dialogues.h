#pragma once

#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "ui/operator_message.h"

namespace orvenza {

/// What the register says of a receipt.
struct CashStatus {
  bool receiptOpen = false;  ///< False also where the status could not be read.
  Reply unread;              ///< The last reply, where the status could not be read; otherwise silence.
};

/// The fixed dialogues with the register. Each waits, without limit, for the register to be ready
/// before every transmission, and reports its failure in the error log alone.
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

  /// Asks for the register's status, up to ten times. A status read without a receipt open is followed by the
  /// correction of the PC clock, where that is switched on.
  [[nodiscard]] CashStatus QueryCashStatus();

  /// Restarts printing after paper-out and waits until the register answers a status query again.
  void InvioRIAVVIO();

  /// Voids the whole receipt in progress, or has the operator decide to close it where it cannot be voided.
  /// Returns the last reply; silence also where the register has no receipt open, or it is left open.
  Reply InvioVOID();

  /// Voids a receipt left open, if there is one, until the register has none: after some tries the operator
  /// may have it closed by a payment instead. Throws ProgramEnd, between any two tries.
  void CloseReceiptLeftOpen();

  /// Voids the receipt in which the register broke off, if it is still open. Returns whether it was.
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
