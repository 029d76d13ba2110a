#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "core/logs.h"
#include "core/settings.h"
#include "device/cash_dialogues.h"
#include "device/device_link.h"
#include "device/doubt_policy.h"
#include "device/error_recovery.h"
#include "device/logo_download.h"
#include "tickets/document_progress.h"
#include "tickets/record.h"
#include "tickets/ticket_witness.h"
#include "tickets/translation.h"

namespace orvenza {

/// The consequence of sending a line.
enum class Next {
  kNextLine,
  kSameLine,      ///< The line is sent again.
  kSplitReceipt,  ///< The receipt is too long: it is closed, and the line begins another one.
  kFinish,        ///< Everything is printed.
  kPrinted,       ///< The operator says that the receipt is printed.
  kRestart,       ///< The ticket is printed again.
  kAbort,         ///< The operator gives up the receipt.
  kGiveUp,        ///< An abort that the operator may not have chosen, so it is reported in the error log.
  kLeave,         ///< The file stays where it is.
};

/// A line to send.
struct TicketLine {
  std::string text;
  std::size_t number = 0;  ///< In the file, from 1.
  bool divides = false;    ///< The payment that closes the first part of a receipt that is too long.
  bool repeated = false;   ///< It has been too long for the receipt once: no second division because of it.
};

/// Sends a ticket to the register line by line, and resolves each line's reply with the operator.
class LineSender {
 public:
  LineSender(DeviceLink& link, const AppSettings& settings, CashDialogues& cash, ErrorRecovery& recovery,
             LogoDownload& logo, RecordTranslator& translator, Logs& logs, TicketWitness& witness);

  /// Starts a ticket or continues it: the lines of `progress` are complete.
  void Begin(const DocumentProgress& progress);

  /// Translates and sends `line`, which consists of `fields`.
  [[nodiscard]] Next Send(const TicketLine& line, const RecordFields& fields);

  /// How far the ticket is complete, as far as this is known without the line that was sent last and failed.
  [[nodiscard]] const DocumentProgress& Progress() const { return progress_; }

  /// The consequence for the file if the program ends now, during a wait for the register or the operator. A
  /// file left in place is printed from its start the next time, so one that may have completed a receipt or
  /// a closure is given up instead, unless the policy leaves it.
  [[nodiscard]] Next IfEnded() const { return ifEnded_; }

  /// Reopens the link with the ordinary end-of-text timeout if a long-running command changed it.
  void RestoreNormalWait();

 private:
  [[nodiscard]] const DoubtPolicy& Policy() const { return PolicyOf(settings_); }
  Next HandleUnreadableLine(const std::string& line);
  Next HandleInvalidLine(const std::string& line);
  std::optional<Next> AskAboutInvalidLine(const std::string& line);
  Next SendLogo(const TicketLine& line, const RecordFields& fields);
  Next SendOrdinary(const TicketLine& line, const RecordFields& fields, const std::string& command);
  Next SendLongRunning(const TicketLine& line, const RecordFields& fields, const std::string& command);
  Reply Transmit(const TicketLine& line, const RecordFields& fields, const SentCommand& sent, bool isLong);

  Next HandleReply(CommandUse use, const TicketLine& line, const RecordFields& fields, Reply reply);
  std::optional<Next> SettleSilence(const std::string& line, const Reply& reply);
  Next SettleDeviceError(const TicketLine& line, const RecordFields& fields, const Reply& reply);
  Next AfterPaperOut(const RecordFields& fields);

  DeviceLink& link_;
  const AppSettings& settings_;
  CashDialogues& cash_;
  ErrorRecovery& recovery_;
  LogoDownload& logo_;
  RecordTranslator& translator_;
  Logs& logs_;
  TicketWitness& witness_;

  DocumentProgress progress_;
  Next ifEnded_ = Next::kLeave;
  bool completes_ = false;  // the command sent last may complete something
  bool longWait_ = false;   // the link is open with the long end-of-text timeout
};

}  // namespace orvenza
