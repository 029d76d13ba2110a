#include "tickets/ticket_processor.h"

#include <utility>

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "tickets/document_lines.h"
#include "tickets/piece_reader.h"
#include "tickets/record_types.h"
#include "tickets/ticket_listing.h"
#include "tickets/ticket_total.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Trasmissione ";

PrintEnd PrintEndOf(Next end) {
  if (end == Next::kFinish) return PrintEnd::kPrinted;
  return end == Next::kAbort || end == Next::kGiveUp ? PrintEnd::kGivenUp : PrintEnd::kLeft;
}

}  // namespace

TicketProcessor::TicketProcessor(const FileReader& files, const AppSettings& settings, Logs& logs,
                                 EventLoop& loop, CashDialogues& cash, ErrorRecovery& recovery,
                                 LineSender& sender, TicketArchive& archive, const Evidence& evidence,
                                 TicketWitnesses& witness)
    : files_(files),
      settings_(settings),
      logs_(logs),
      loop_(loop),
      cash_(cash),
      recovery_(recovery),
      sender_(sender),
      archive_(archive),
      evidence_(evidence),
      witness_(witness) {}

void TicketProcessor::ProcessTicketFile(const std::string& entry, const std::string& workFile,
                                        std::string text) {
  std::optional<Next> end;
  std::optional<ProgramEnd> ended;
  try {
    end = Print(FactsOf(entry, workFile, text), text);
    sender_.RestoreNormalWait();
  } catch (const ProgramEnd& wish) {
    // Only after the file is in its place.
    ended = wish;
    if (!end) end = sender_.IfEnded();
  }
  if (end == Next::kPrinted) end = Next::kFinish;
  witness_.Ended(PrintEndOf(*end));
  if (end == Next::kFinish) {
    logs_.WrLog(LoadMessage(MessageId::kReceiptEnd));
    archive_.Archive(workFile, text);
  } else if (end == Next::kAbort || end == Next::kGiveUp) {
    if (ended || end == Next::kGiveUp) logs_.WrErr(LoadMessage(MessageId::kPrintAborted) + " " + workFile);
    archive_.Abort(workFile, text);
  }
  if (ended) throw *ended;
}

TicketFacts TicketProcessor::FactsOf(const std::string& entry, const std::string& workFile,
                                     const std::string& text) const {
  // Looking at the text takes time, which is spent only for those who want to know.
  return {TicketListing::NameOf(entry), entry.substr(0, TicketListing::kStampLength), workFile,
          witness_.Empty() ? Fingerprint{} : FingerprintOf(text),
          !witness_.Empty() && CompletesAnything(text, settings_.SeparatorChar)};
}

Next TicketProcessor::Print(const TicketFacts& ticket, std::string& text) {
  witness_.Taken(ticket);
  DocumentProgress progress;
  sender_.Begin(progress);
  if (const auto end = Resume(ticket, text, progress)) return *end;
  std::size_t inDoubt = Policy().restartsFromFirstLine ? 0 : evidence_.Of(ticket).line;
  for (bool again = false;; again = true) {
    sender_.Begin(progress);
    logs_.WrLog(LoadMessage(MessageId::kReceiptStart));
    // Nothing of the ticket has been sent yet.
    const auto certain = logs_.Attempt(kLabel, [&] { return cash_.CloseReceiptLeftOpen(); });
    if (!certain) return Next::kLeave;
    loop_.CheckEnd();
    if (!MayExist(files_, ticket.workFile)) return Next::kLeave;
    if (again && !ReadAgain(ticket.workFile, text, progress.Complete())) return Next::kLeave;
    if (inDoubt > progress.Complete() && cash_.PrintingRestarted()) {
      // The slip may have come out only now, so the operator could not know.
      const Standing standing{Standing::State::kUnderWay, progress, inDoubt};
      if (const auto end = AskAboutInterrupted(ticket, text, standing, progress)) return *end;
      sender_.Begin(progress);
    }
    witness_.Begun(progress, *certain);
    const Next end = SendLines(text, progress.Complete());
    const bool goesOn = end == Next::kRestart || (end == Next::kPrinted && !Policy().printedFinishesFile);
    if (!goesOn) return end;
    if (!Policy().restartsFromFirstLine) progress = Continuing(end, text);
    const bool reprints = end == Next::kRestart && !Policy().restartsFromFirstLine;
    inDoubt = reprints && MayComplete(fields_[0]) ? line_.number : 0;
    if (end == Next::kPrinted && !AnythingBehind(text, progress.Complete(), settings_.SeparatorChar))
      return Next::kFinish;
  }
}

/// What the evidence of an earlier run, or of an earlier attempt that failed, says about the ticket.
std::optional<Next> TicketProcessor::Resume(const TicketFacts& ticket, const std::string& text,
                                            DocumentProgress& progress) {
  if (Policy().restartsFromFirstLine) return std::nullopt;
  const Standing standing = evidence_.Of(ticket);
  switch (standing.state) {
    case Standing::State::kNew: return std::nullopt;
    case Standing::State::kBegun:
      progress = {CompleteLines(text, standing.progress, settings_.SeparatorChar), 0};
      if (AnythingBehind(text, progress.Complete(), settings_.SeparatorChar)) return std::nullopt;
      logs_.WrLog(std::string(own_text::kArchivedLate) + " " + ticket.name);
      return Next::kFinish;
    case Standing::State::kGivenUp: return Next::kAbort;
    case Standing::State::kUnderWay: return AskAboutInterrupted(ticket, text, standing, progress);
    case Standing::State::kUnknown: break;
  }
  return AskAboutUnknown(ticket, text, progress);
}

/// The command under way is the only one in doubt.
std::optional<Next> TicketProcessor::AskAboutInterrupted(const TicketFacts& ticket, const std::string& text,
                                                         const Standing& standing,
                                                         DocumentProgress& progress) {
  progress = {CompleteLines(text, standing.progress, settings_.SeparatorChar), 0};
  const std::size_t through = LinesThroughCommand(text, standing.line, settings_.SeparatorChar);
  const Decision decision = AskAbout(ticket, text, progress.Complete(), through);
  if (decision == Decision::kAbort) return Next::kAbort;
  if (decision == Decision::kReprint) return std::nullopt;
  progress = {through, 0};
  if (AnythingBehind(text, progress.Complete(), settings_.SeparatorChar)) return std::nullopt;
  return Next::kFinish;
}

/// Each document may be printed or not, so the operator is asked about one after the other.
std::optional<Next> TicketProcessor::AskAboutUnknown(const TicketFacts& ticket, const std::string& text,
                                                     DocumentProgress& progress) {
  const auto before = [&] { return LinesBeforeDocument(text, progress.Complete(), settings_.SeparatorChar); };
  for (auto skipped = before(); skipped; skipped = before()) {
    const std::size_t through = LinesThroughDocument(text, *skipped + 1, settings_.SeparatorChar);
    const Decision decision = AskAbout(ticket, text, *skipped, through);
    if (decision == Decision::kAbort) return Next::kAbort;
    if (decision == Decision::kReprint) return std::nullopt;
    progress = {through, 0};
  }
  // Without a document nothing was asked, and nothing can be printed twice.
  if (progress.Complete() == 0) return std::nullopt;
  return Next::kFinish;
}

/// Asks about what comes behind `skipped` lines and ends with line `last`.
Decision TicketProcessor::AskAbout(const TicketFacts& ticket, const std::string& text, std::size_t skipped,
                                   std::size_t last) {
  const std::string heading =
      DescribeTicket(ticket.stamp, text, skipped, last, settings_.SeparatorChar) + " : " + ticket.name;
  const Decision decision =
      recovery_.AskInDoubt(heading, std::string(own_text::kInterrupted) + " " + own_text::kCheckPaper);
  // What is open although that is complete is another one.
  if (decision == Decision::kPrinted) cash_.ReceiptIsOurs = false;
  return decision;
}

/// The file may have been corrected while the operator was asked. What is printed stays as it is.
bool TicketProcessor::ReadAgain(const std::string& workFile, std::string& text, std::size_t printed) {
  const auto read = [&] { return ReadInPieces(files_, workFile, [&] { loop_.Dispatch(); }); };
  auto anew = logs_.Attempt(kLabel, read);
  if (!anew) return false;
  if (BeginAlike(*anew, text, printed)) text = std::move(*anew);
  return true;
}

/// Where printing goes on: behind what is complete, or behind the receipt that is printed by now.
DocumentProgress TicketProcessor::Continuing(Next end, std::string_view text) const {
  if (end == Next::kRestart) return {sender_.Progress().CompleteBefore(fields_[0]), 0};
  if (line_.divides) return {line_.number - 1, 0};
  return {LinesThroughDocument(text, line_.number, settings_.SeparatorChar), 0};
}

Next TicketProcessor::SendLines(std::string_view text, std::size_t printed) {
  pending_.clear();
  // Lines without a command cause no wait.
  LineReader reader(
      std::make_unique<PieceReader>(std::make_unique<ViewBytes>(text), [&] { loop_.Dispatch(); }));
  for (read_ = 0; TakeLine(reader);) {
    if (line_.number <= printed) continue;
    // A receipt must not continue without one of its lines.
    const Next failed = Policy().failureGivesUp ? Next::kGiveUp : Next::kLeave;
    const Next next = logs_.Attempt(kLabel, [&] { return HandleLine(); }).value_or(failed);
    if (next == Next::kSameLine) pending_.push_front(line_);
    if (next != Next::kNextLine && next != Next::kSameLine) return next;
  }
  return Next::kFinish;
}

bool TicketProcessor::TakeLine(LineReader& reader) {
  if (pending_.empty()) {
    line_ = {std::move(line_.text), ++read_, false, false};
    return reader.ReadLine(line_.text);
  }
  line_ = std::move(pending_.front());
  pending_.pop_front();
  return true;
}

Next TicketProcessor::HandleLine() {
  SplitRecord(line_.text, settings_.SeparatorChar, fields_);
  if (fields_.IsEmpty()) return Next::kNextLine;
  const Next next = sender_.Send(line_, fields_);
  if (next != Next::kSplitReceipt) return next;
  SplitReceipt();
  return Next::kNextLine;
}

/// A line that even a new receipt refuses would cause endless splitting: the operator decides about it.
void TicketProcessor::SplitReceipt() {
  logs_.WrLog(LoadMessage(MessageId::kReceiptSplit));
  pending_.push_front({line_.text, line_.number, false, true});
  pending_.push_front({std::string(kReceiptSplitLine), line_.number, true, true});
  logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(line_.text));
}

}  // namespace orvenza
