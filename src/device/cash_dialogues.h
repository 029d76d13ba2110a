#pragma once

#include <functional>
#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "device/doubt_policy.h"
#include "device/link_dialogs.h"
#include "ui/operator_message.h"

namespace orvenza {

/// The result of a status query.
struct CashStatus {
  bool receiptOpen = false;  ///< Also false if the status could not be read.
  bool read = true;          ///< Whether the status could be read.
  Reply unread;              ///< The last reply if not; otherwise silence.
};

/// The fixed dialogues with the register. Each waits without limit for the register to be ready before every
/// transmission, and reports failures only in the error log.
class CashDialogues {
 public:
  CashDialogues(DeviceLink& link, const AppSettings& settings, Logs& logs, OperatorMessages& messages,
                LinkDialogs& linkDialogs, EventLoop& loop, ClockCorrection& clockCorrection)
      : link_(link),
        settings_(settings),
        logs_(logs),
        messages_(messages),
        linkDialogs_(linkDialogs),
        loop_(loop),
        clockCorrection_(clockCorrection) {}

  /// Queries the register's status, up to ten times. If no receipt is open, the correction of the PC's clock
  /// follows, if enabled. If the policy asks for a status that was read, the operator is asked to try again
  /// until it was; throws ProgramEnd when the operator gives up.
  [[nodiscard]] CashStatus QueryCashStatus();

  /// Restarts printing after paper-out and waits until the register answers a status query again.
  void InvioRIAVVIO();

  /// Whether a receipt that is found open comes from a ticket. Set by those who know.
  bool ReceiptIsOurs = false;

  /// Whether an open receipt may be voided: it is ours, or the operator has been asked, or the policy voids
  /// any.
  [[nodiscard]] bool MayVoid();

  /// Called when a receipt is closed by a payment because it could not be voided.
  std::function<void()> OnClosedAutomatically;

  /// Voids the whole receipt in progress. If that fails, lets the operator decide whether to close it.
  /// Returns the last reply; silence if no receipt is open or it stays open.
  Reply InvioVOID();

  /// Voids a receipt left open, if any, until the register has none. After some attempts the operator may
  /// have it closed by a payment instead. Returns whether the register has said that none is open. Throws
  /// ProgramEnd between two attempts.
  bool CloseReceiptLeftOpen();

  /// Whether CloseReceiptLeftOpen has restarted printing after paper-out: a slip that was held back may have
  /// come out meanwhile.
  [[nodiscard]] bool PrintingRestarted() const { return printingRestarted_; }

  /// Voids the receipt that the register interrupted, if it is still open. Returns whether it was.
  [[nodiscard]] bool VoidInterruptedReceipt();

 private:
  [[nodiscard]] const DoubtPolicy& Policy() const { return PolicyOf(settings_); }
  [[nodiscard]] CashStatus ReadStatus();
  void AskToReadAgain(const Reply& unread);
  bool SendRestart();
  void NoteFailure(const Reply& reply, std::string& data);
  void CorrectClock();
  void AwaitStatus();
  Reply PauseAfterVoid(const Reply& reply);
  [[nodiscard]] bool OperatorWantsAutomaticClose();
  void LogReply(const Reply& reply);

  DeviceLink& link_;
  const AppSettings& settings_;
  Logs& logs_;
  OperatorMessages& messages_;
  LinkDialogs& linkDialogs_;
  EventLoop& loop_;
  ClockCorrection& clockCorrection_;
  bool printingRestarted_ = false;
};

}  // namespace orvenza
