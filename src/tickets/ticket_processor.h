#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/cash_dialogues.h"
#include "platform/files.h"
#include "tickets/line_reader.h"
#include "tickets/line_sender.h"
#include "tickets/record.h"
#include "tickets/ticket_archive.h"

namespace orvenza {

/// Sends one ticket file to the register, from its first line to the archive.
class TicketProcessor {
 public:
  TicketProcessor(const FileReader& files, const AppSettings& settings, Logs& logs, EventLoop& loop,
                  CashDialogues& cash, LineSender& sender, TicketArchive& archive);

  /// Prints the ticket `text`, the whole content of the path `workFile`; when printing is restarted, the file
  /// is read again. On return the file has been archived, moved to the abort folder, or has disappeared; a
  /// file that could not be read again stays for a later call. Throws ProgramEnd; if nothing of the ticket
  /// was sent, the file stays, too.
  void ProcessTicketFile(const std::string& workFile, std::string text);

 private:
  /// A line to send: from the file, or inserted by the receipt split before the file's next line.
  struct Line {
    std::string text;
    bool fromSplit = false;
  };

  Next Print(const std::string& workFile, std::string& text);

  Next SendLines(std::string_view text);
  [[nodiscard]] bool TakeLine(LineReader& reader, Line& line);
  Next HandleLine(const Line& line);
  void SplitReceipt(const std::string& rejectedLine);

  const FileReader& files_;
  const AppSettings& settings_;
  Logs& logs_;
  EventLoop& loop_;
  CashDialogues& cash_;
  LineSender& sender_;
  TicketArchive& archive_;

  RecordFields fields_;
  std::deque<Line> pending_;  // lines to send before the file's next one
};

}  // namespace orvenza
