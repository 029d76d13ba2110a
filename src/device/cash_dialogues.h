#pragma once

#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The three fixed dialogues with the register. Each waits, without limit, for the register to be ready
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

  /// Asks for the register's status, up to ten times. True when a receipt is open; false when none is, or the
  /// status could not be read. `ReplyText` is empty after an answer. A status read without a receipt open is
  /// followed by the correction of the PC clock, where that is switched on.
  bool QueryCashStatus();

  /// Restarts printing after paper-out and waits until the register answers a status query again.
  void InvioRIAVVIO();

  /// Voids the whole receipt in progress, or has the operator decide to close it where it cannot be voided.
  void InvioVOID();

  /// Asks whether a receipt that cannot be voided is to be closed by a payment instead. True only for a clear
  /// yes.
  bool OperatorWantsAutomaticClose();

 private:
  enum class VoidStep { kDone, kVoidAgain, kCloseReceipt };

  void FollowStatusRead();
  VoidStep ExamineVoidReply(std::string& data);
  void LogReply();

  DeviceLink& link_;
  const AppSettings& settings_;
  Logs& logs_;
  OperatorMessages& messages_;
  EventLoop& loop_;
  ClockCorrection& clockCorrection_;
};

}  // namespace orvenza
