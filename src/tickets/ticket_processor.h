#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/cash_dialogues.h"
#include "platform/files.h"
#include "tickets/evidence.h"
#include "tickets/line_reader.h"
#include "tickets/line_sender.h"
#include "tickets/record.h"
#include "tickets/ticket_archive.h"
#include "tickets/ticket_witness.h"

namespace orvenza {

/// Sends one ticket file to the register, from its first line to the archive.
class TicketProcessor {
 public:
  TicketProcessor(const FileReader& files, const AppSettings& settings, Logs& logs, EventLoop& loop,
                  CashDialogues& cash, ErrorRecovery& recovery, LineSender& sender, TicketArchive& archive,
                  const Evidence& evidence, TicketWitnesses& witness);

  /// Prints the ticket `text`, the whole content of the path `workFile`; when printing is restarted, the file
  /// is read again. `entry` is its entry in a TicketListing. On return the file has been archived, moved to
  /// the abort folder, or has disappeared; a file that could not be read again stays for a later call. Throws
  /// ProgramEnd; if nothing of the ticket was sent, the file stays, too.
  void ProcessTicketFile(const std::string& entry, const std::string& workFile, std::string text);

 private:
  [[nodiscard]] const DoubtPolicy& Policy() const { return PolicyOf(settings_); }
  TicketFacts FactsOf(const std::string& entry, const std::string& workFile, const std::string& text) const;

  Next Print(const TicketFacts& ticket, std::string& text);
  std::optional<Next> Resume(const TicketFacts& ticket, const std::string& text, DocumentProgress& progress);
  std::optional<Next> AskAboutInterrupted(const TicketFacts& ticket, const std::string& text,
                                          const Standing& standing, DocumentProgress& progress);
  std::optional<Next> AskAboutUnknown(const TicketFacts& ticket, const std::string& text,
                                      DocumentProgress& progress);
  Decision AskAbout(const TicketFacts& ticket, const std::string& text, std::size_t skipped,
                    std::size_t last);
  [[nodiscard]] bool ReadAgain(const std::string& workFile, std::string& text, std::size_t printed);
  [[nodiscard]] DocumentProgress Continuing(Next end, std::string_view text) const;

  Next SendLines(std::string_view text, std::size_t printed);
  [[nodiscard]] bool TakeLine(LineReader& reader);
  Next HandleLine();
  void SplitReceipt();

  const FileReader& files_;
  const AppSettings& settings_;
  Logs& logs_;
  EventLoop& loop_;
  CashDialogues& cash_;
  ErrorRecovery& recovery_;
  LineSender& sender_;
  TicketArchive& archive_;
  const Evidence& evidence_;
  TicketWitnesses& witness_;

  RecordFields fields_;
  TicketLine line_;                 // the line being sent
  std::size_t read_ = 0;            // number of lines read from the file
  std::deque<TicketLine> pending_;  // lines to send before the file's next one
};

}  // namespace orvenza
