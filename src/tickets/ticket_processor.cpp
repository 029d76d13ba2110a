#include "tickets/ticket_processor.h"

#include <utility>

#include "core/catalogue.h"
#include "core/text.h"
#include "tickets/piece_reader.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Trasmissione ";
/// Payment 01 of zero, which closes the receipt. Its separator is always 127, whatever is configured.
constexpr const char* kReceiptSplitLine =
    "2\x7f"
    "1\x7f"
    "0\x7f\x7f\x7f\x7f\x7f\x7f\x7f\x7f";

}  // namespace

TicketProcessor::TicketProcessor(const FileReader& files, const AppSettings& settings, Logs& logs,
                                 EventLoop& loop, CashDialogues& cash, LineSender& sender,
                                 TicketArchive& archive)
    : files_(files),
      settings_(settings),
      logs_(logs),
      loop_(loop),
      cash_(cash),
      sender_(sender),
      archive_(archive) {}

void TicketProcessor::ProcessTicketFile(const std::string& workFile, std::string text) {
  std::optional<Next> end;
  std::optional<ProgramEnd> ended;
  try {
    end = Print(workFile, text);
    sender_.RestoreNormalWait();
  } catch (const ProgramEnd& wish) {
    // Only after the file is in its place.
    ended = wish;
    if (!end) end = sender_.IfEnded();
  }
  if (end == Next::kFinish) {
    logs_.WrLog(LoadMessage(MessageId::kReceiptEnd));
    archive_.Archive(workFile, text);
  } else if (end == Next::kAbort || end == Next::kGiveUp) {
    if (ended || end == Next::kGiveUp) logs_.WrErr(LoadMessage(MessageId::kPrintAborted) + " " + workFile);
    archive_.Abort(workFile, text);
  }
  if (ended) throw *ended;
}

Next TicketProcessor::Print(const std::string& workFile, std::string& text) {
  for (bool again = false;; again = true) {
    sender_.Begin();
    logs_.WrLog(LoadMessage(MessageId::kReceiptStart));
    // Nothing of the ticket has been sent yet.
    if (!logs_.Attempt(kLabel, [&] { cash_.CloseReceiptLeftOpen(); })) return Next::kLeave;
    loop_.CheckEnd();
    if (!MayExist(files_, workFile)) return Next::kLeave;
    // The file may have been corrected while the operator was asked.
    if (again) {
      const auto read = [&] { return ReadInPieces(files_, workFile, [&] { loop_.Dispatch(); }); };
      auto anew = logs_.Attempt(kLabel, read);
      if (!anew) return Next::kLeave;
      text = std::move(*anew);
    }
    const Next end = SendLines(text);
    if (end != Next::kRestart) return end;
  }
}

Next TicketProcessor::SendLines(std::string_view text) {
  pending_.clear();
  // Lines without a command cause no wait.
  LineReader reader(
      std::make_unique<PieceReader>(std::make_unique<ViewBytes>(text), [&] { loop_.Dispatch(); }));
  for (Line line; TakeLine(reader, line);) {
    // A receipt must not continue without one of its lines.
    const Next next = logs_.Attempt(kLabel, [&] { return HandleLine(line); }).value_or(Next::kGiveUp);
    if (next != Next::kNextLine) return next;
  }
  return Next::kFinish;
}

bool TicketProcessor::TakeLine(LineReader& reader, Line& line) {
  if (pending_.empty()) {
    line.fromSplit = false;
    return reader.ReadLine(line.text);
  }
  line = std::move(pending_.front());
  pending_.pop_front();
  return true;
}

Next TicketProcessor::HandleLine(const Line& line) {
  SplitRecord(line.text, settings_.SeparatorChar, fields_);
  if (fields_.IsEmpty()) return Next::kNextLine;
  // A line that even a new receipt refuses would cause endless splitting: the operator decides about it.
  const Next next = sender_.Send(line.text, fields_, !line.fromSplit);
  if (next != Next::kSplitReceipt) return next;
  SplitReceipt(line.text);
  return Next::kNextLine;
}

void TicketProcessor::SplitReceipt(const std::string& rejectedLine) {
  logs_.WrLog(LoadMessage(MessageId::kReceiptSplit));
  pending_.push_front({rejectedLine, true});
  pending_.push_front({kReceiptSplitLine, true});
  logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(rejectedLine));
}

}  // namespace orvenza
