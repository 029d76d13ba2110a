#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/cash_dialogues.h"
#include "device/device_link.h"
#include "device/error_recovery.h"
#include "device/logo_download.h"
#include "platform/files.h"
#include "tickets/line_reader.h"
#include "tickets/record.h"
#include "tickets/ticket_archive.h"
#include "tickets/translation.h"

namespace orvenza {

/// Drives one ticket file through the register, from its first line to the archive.
class TicketProcessor {
 public:
  TicketProcessor(Files& files, const AppSettings& settings, Logs& logs, EventLoop& loop, DeviceLink& link,
                  CashDialogues& cash, ErrorRecovery& recovery, LogoDownload& logo,
                  RecordTranslator& translator, TicketArchive& archive);

  /// Prints the ticket `text`, the whole of `workFile`, a full path; a printing from the start again reads
  /// the file anew. On return the file has been archived or moved to the abort folder, or has disappeared;
  /// one that could not be read anew stays where it is, for a later call. Throws ProgramEnd; where nothing of
  /// the ticket was sent, the file then stays too.
  void ProcessTicketFile(const std::string& workFile, std::string text);

 private:
  /// `kGiveUp` is an abort that nobody need have chosen, and that the error log therefore tells of.
  enum class Next { kNextLine, kFinish, kRestart, kAbort, kGiveUp, kLeave };

  /// A line to send: from the file, or put before the file's next line by the receipt split.
  struct Line {
    std::string text;
    bool fromSplit = false;
  };

  Next Print(const std::string& workFile, std::string& text);

  Next SendLines(std::string_view text);
  bool TakeLine(LineReader& reader, Line& line);
  Next HandleLine(const Line& line);
  Next HandleUnreadableLine(const std::string& line);
  Next HandleInvalidLine(const std::string& line);
  std::optional<Next> AskAboutInvalidLine(const std::string& line);
  Next SendLongRunning(const std::string& command);
  void RestoreNormalWait();

  Next HandleReply(const Line& line, Reply reply);
  std::optional<Next> SettleSilence(const std::string& line, const Reply& reply);
  Next SettleDeviceError(const std::string& line, const Reply& reply);
  void SplitReceipt(const std::string& rejectedLine);
  static std::optional<Next> FromDecision(Decision decision);

  Files& files_;
  const AppSettings& settings_;
  Logs& logs_;
  EventLoop& loop_;
  DeviceLink& link_;
  CashDialogues& cash_;
  ErrorRecovery& recovery_;
  LogoDownload& logo_;
  RecordTranslator& translator_;
  TicketArchive& archive_;

  RecordFields fields_;
  std::deque<Line> pending_;  // lines to send before the file's next one
  /// What becomes of the file should the program end now, while the register or the operator is waited for. A
  /// file left in its place is printed from its start the next time, so one that may have completed a
  /// receipt, or carried out a closure, is given up instead.
  Next ifEnded_ = Next::kLeave;
  bool longWait_ = false;  // the link is open with the long end-of-text wait
};

}  // namespace orvenza
