#pragma once

#include <optional>
#include <string>

#include "core/logs.h"
#include "device/cash_dialogues.h"
#include "device/device_link.h"
#include "device/error_recovery.h"
#include "device/logo_download.h"
#include "tickets/record.h"
#include "tickets/translation.h"

namespace orvenza {

/// The consequence of sending a line.
enum class Next {
  kNextLine,
  kSplitReceipt,  ///< The receipt is too long: it is closed, and the line begins another one.
  kFinish,        ///< The receipt is printed.
  kRestart,       ///< The ticket is printed again from its start.
  kAbort,         ///< The operator gives up the receipt.
  kGiveUp,        ///< An abort that the operator may not have chosen, so it is reported in the error log.
  kLeave,         ///< The file stays where it is.
};

/// Sends a ticket to the register line by line, and resolves each line's reply with the operator.
class LineSender {
 public:
  LineSender(DeviceLink& link, CashDialogues& cash, ErrorRecovery& recovery, LogoDownload& logo,
             RecordTranslator& translator, Logs& logs)
      : link_(link), cash_(cash), recovery_(recovery), logo_(logo), translator_(translator), logs_(logs) {}

  /// Starts a ticket: nothing of it has been sent.
  void Begin() { ifEnded_ = Next::kLeave; }

  /// Translates and sends `line`, which consists of `fields`. `maySplit` allows kSplitReceipt.
  [[nodiscard]] Next Send(const std::string& line, const RecordFields& fields, bool maySplit);

  /// The consequence for the file if the program ends now, during a wait for the register or the operator. A
  /// file left in place is printed from its start the next time, so one that may have completed a receipt or
  /// a closure is given up instead.
  [[nodiscard]] Next IfEnded() const { return ifEnded_; }

  /// Reopens the link with the ordinary end-of-text timeout if a long-running command changed it.
  void RestoreNormalWait();

 private:
  Next HandleUnreadableLine(const std::string& line);
  Next HandleInvalidLine(const std::string& line);
  std::optional<Next> AskAboutInvalidLine(const std::string& line);
  Next SendLongRunning(const std::string& command);

  Next HandleReply(const std::string& line, Reply reply, bool maySplit);
  std::optional<Next> SettleSilence(const std::string& line, const Reply& reply);
  Next SettleDeviceError(const std::string& line, const Reply& reply);

  DeviceLink& link_;
  CashDialogues& cash_;
  ErrorRecovery& recovery_;
  LogoDownload& logo_;
  RecordTranslator& translator_;
  Logs& logs_;

  Next ifEnded_ = Next::kLeave;
  bool longWait_ = false;  // the link is open with the long end-of-text timeout
};

}  // namespace orvenza
