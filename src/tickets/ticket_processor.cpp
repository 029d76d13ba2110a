#include "tickets/ticket_processor.h"

#include <algorithm>
#include <utility>

#include "core/catalogue.h"
#include "core/text.h"
#include "device/reply_policy.h"
#include "tickets/piece_reader.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kLabel = "Trasmissione ";
/// Payment 01 of nothing, which closes the receipt. Its separator is 127 whatever is configured.
constexpr const char* kReceiptSplitLine =
    "2\x7f"
    "1\x7f"
    "0\x7f\x7f\x7f\x7f\x7f\x7f\x7f\x7f";

/// Records after which something is on paper for good: payments, the end of a document, cash movements.
bool MayCompleteSomething(std::string_view type) {
  return type == "2" || type == "5" || type == "14" || type == "15" || type == "31" || type == "34" ||
         type == "35";
}

}  // namespace

TicketProcessor::TicketProcessor(Files& files, const AppSettings& settings, Logs& logs, EventLoop& loop,
                                 DeviceLink& link, CashDialogues& cash, ErrorRecovery& recovery,
                                 LogoDownload& logo, RecordTranslator& translator, TicketArchive& archive)
    : files_(files),
      settings_(settings),
      logs_(logs),
      loop_(loop),
      link_(link),
      cash_(cash),
      recovery_(recovery),
      logo_(logo),
      translator_(translator),
      archive_(archive) {}

void TicketProcessor::ProcessTicketFile(const std::string& workFile, std::string text) {
  Next end = Next::kLeave;
  std::optional<ProgramEnd> ended;
  try {
    end = Print(workFile, text);
    ifEnded_ = end;
    RestoreNormalWait();
  } catch (const ProgramEnd& wish) {
    // Only after the file is in its place.
    ended = wish;
    end = ifEnded_;
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

TicketProcessor::Next TicketProcessor::Print(const std::string& workFile, std::string& text) {
  for (bool again = false;; again = true) {
    ifEnded_ = Next::kLeave;
    logs_.WrLog(LoadMessage(MessageId::kReceiptStart));
    // Nothing of the ticket has been sent yet.
    if (!logs_.Attempt(kLabel, [&] { cash_.CloseReceiptLeftOpen(); })) return Next::kLeave;
    loop_.CheckEnd();
    if (!MayExist(files_, workFile)) return Next::kLeave;
    // The file may have been corrected while the operator was asked.
    const auto read = [&] { text = ReadInPieces(files_, workFile, [&] { loop_.Dispatch(); }); };
    if (again && !logs_.Attempt(kLabel, read)) return Next::kLeave;
    const Next end = SendLines(text);
    if (end != Next::kRestart) return end;
  }
}

TicketProcessor::Next TicketProcessor::SendLines(std::string_view text) {
  pending_.clear();
  // Lines that send nothing wait for nothing.
  LineReader reader(
      std::make_unique<PieceReader>(std::make_unique<ViewBytes>(text), [&] { loop_.Dispatch(); }));
  for (Line line; TakeLine(reader, line);) {
    // A receipt must not go on without one of its lines.
    Next next = Next::kGiveUp;
    logs_.Attempt(kLabel, [&] { next = HandleLine(line); });
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

TicketProcessor::Next TicketProcessor::HandleLine(const Line& line) {
  SplitRecord(line.text, settings_.SeparatorChar, fields_);
  if (fields_.IsEmpty()) return Next::kNextLine;
  RestoreNormalWait();
  if (fields_.Count() == 0) return HandleUnreadableLine(line.text);
  const std::string command = translator_.TranslateRecord(fields_);
  if (command.empty()) return HandleInvalidLine(line.text);
  if (command == kLogoMarker) {
    const LogoRequest request = LogoRequestOf(fields_);
    const auto givenUp = [&] { ifEnded_ = Next::kAbort; };
    return logo_.Download(request.number, request.path, line.text, givenUp) ? Next::kNextLine : Next::kGiveUp;
  }
  if (IsLongRunning(command)) return SendLongRunning(command.substr(0, command.size() - 1));
  link_.AwaitDevice();
  const Next before = ifEnded_;
  if (MayCompleteSomething(fields_[0])) ifEnded_ = Next::kAbort;
  const Reply reply = link_.Transmit(command);
  if (reply_policy::NotDone(reply)) ifEnded_ = before;
  return HandleReply(line, reply);
}

TicketProcessor::Next TicketProcessor::HandleUnreadableLine(const std::string& line) {
  return AskAboutInvalidLine(line).value_or(Next::kGiveUp);
}

TicketProcessor::Next TicketProcessor::HandleInvalidLine(const std::string& line) {
  logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(line));
  return AskAboutInvalidLine(line).value_or(Next::kNextLine);
}

std::optional<TicketProcessor::Next> TicketProcessor::AskAboutInvalidLine(const std::string& line) {
  return FromDecision(recovery_.DecodeDeviceError(Reply::InvalidLine(), line, Choices::kOffered));
}

TicketProcessor::Next TicketProcessor::SendLongRunning(const std::string& command) {
  longWait_ = true;
  link_.Reopen(settings_.TimeWaitForLONGEtx);
  if (!link_.DeviceReady()) return Next::kGiveUp;
  ifEnded_ = Next::kAbort;
  const Reply reply =
      link_.Transmit(command, std::max(DeviceLink::kReplyWait, settings_.TimeWaitForLONGEtx / 1000.0));
  if (!reply_policy::Answered(reply))
    logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + FromWindows1252(reply.Text()));
  return Next::kNextLine;
}

void TicketProcessor::RestoreNormalWait() {
  if (!longWait_) return;
  longWait_ = false;
  logs_.Attempt(kLabel, [&] { link_.Reopen(settings_.TimeWaitForEtx); });
}

TicketProcessor::Next TicketProcessor::HandleReply(const Line& line, Reply reply) {
  if (reply.Is(Reply::Kind::kSilence)) {
    if (const auto next = SettleSilence(line.text, reply)) return *next;
    reply = link_.LatestReply(reply);
  }
  if (reply.Is(Reply::Kind::kLinkError) && !reply_policy::LineIsDone(reply)) {
    if (const auto next = SettleSilence(line.text, reply)) return *next;
    reply = link_.LatestReply(reply);
  }
  if (reply_policy::LineIsDone(reply)) return Next::kNextLine;
  // A line that a fresh receipt refuses again would be split for ever: the operator decides about it.
  if (reply.IsReceiptTooLong() && !line.fromSplit) {
    SplitReceipt(line.text);
    return Next::kNextLine;
  }
  return SettleDeviceError(line.text, reply);
}

/// The register may answer after all while the operator is asked: the caller looks again.
std::optional<TicketProcessor::Next> TicketProcessor::SettleSilence(const std::string& line,
                                                                    const Reply& reply) {
  const auto next = FromDecision(recovery_.DecodeDeviceError(reply, line, Choices::kOffered));
  if (next) ifEnded_ = *next;
  link_.Bounce();
  return next;
}

TicketProcessor::Next TicketProcessor::SettleDeviceError(const std::string& line, const Reply& reply) {
  const Decision decision = recovery_.DecodeDeviceError(reply, line, Choices::kOffered);
  if (decision == Decision::kGoOn && cash_.VoidInterruptedReceipt()) return Next::kRestart;
  return FromDecision(decision).value_or(Next::kNextLine);
}

void TicketProcessor::SplitReceipt(const std::string& rejectedLine) {
  logs_.WrLog(LoadMessage(MessageId::kReceiptSplit));
  pending_.push_front({rejectedLine, true});
  pending_.push_front({kReceiptSplitLine, true});
  logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(rejectedLine));
}

std::optional<TicketProcessor::Next> TicketProcessor::FromDecision(Decision decision) {
  switch (decision) {
    case Decision::kPrinted: return Next::kFinish;
    case Decision::kReprint: return Next::kRestart;
    case Decision::kAbort: return Next::kAbort;
    case Decision::kNothing:
    case Decision::kGoOn: break;
  }
  return std::nullopt;
}

}  // namespace orvenza
