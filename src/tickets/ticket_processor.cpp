#include "tickets/ticket_processor.h"

#include <algorithm>
#include <utility>

#include "core/catalogue.h"
#include "core/text.h"
#include "tickets/logo_request.h"
#include "tickets/piece_reader.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kLabel = "Trasmissione ";
constexpr int kVoidTries = 3;
/// Accepted voids in a row that leave the receipt open all the same, before the operator is asked.
constexpr int kVainVoids = 10;
/// Payment 01 of nothing, which closes the receipt. Its separator is 127 whatever is configured.
constexpr const char* kReceiptSplitLine =
    "2\x7f"
    "1\x7f"
    "0\x7f\x7f\x7f\x7f\x7f\x7f\x7f\x7f";

bool IsFailure(std::string_view reply) { return reply.empty() || IsErrorReply(reply); }

/// Whether the register has certainly not carried the command out. Paper-out may leave it half done.
bool IsRefusal(std::string_view reply) {
  const std::string_view code = Right(reply, 2);
  return IsErrorReply(reply) && !IsLinkError(reply) && code != "01" && code != "02";
}

/// Link error 2 counts as success, deliberately.
bool IsTolerated(std::string_view reply) { return reply.starts_with("ERR-2"); }

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
    if (!logs_.Attempt(kLabel, [&] { CloseOpenReceipt(); })) return Next::kLeave;
    loop_.CheckEnd();
    if (!MayExist(files_, workFile)) return Next::kLeave;
    // The file may have been corrected while the operator was asked.
    const auto read = [&] { text = ReadInPieces(files_, workFile, [&] { loop_.Dispatch(); }); };
    if (again && !logs_.Attempt(kLabel, read)) return Next::kLeave;
    const Next end = SendLines(text);
    if (end != Next::kRestart) return end;
  }
}

void TicketProcessor::CloseOpenReceipt() {
  // Nothing of the ticket has been sent yet, so the program may end between any two tries.
  const EndBeforeSending heeded(link_);
  int tries = kVoidTries;
  int accepted = 0;
  while (cash_.QueryCashStatus()) {
    logs_.WrErr(LoadMessage(MessageId::kVoidingReceipt));
    cash_.InvioVOID();
    if (IsFailure(link_.ReplyText) ? --tries >= 1 : ++accepted < kVainVoids) continue;
    if (cash_.OperatorWantsAutomaticClose()) SendClosingPayment();
    tries = kVoidTries;
    accepted = 0;
  }
}

void TicketProcessor::SendClosingPayment() {
  const std::string& reply = link_.ReplyText;
  const std::string code(IsErrorReply(reply) ? Middle(reply, 4, 2) : "00");
  link_.Exchange("1036" + code + "000000000");
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
  if (HasRole(fields_[0], &RecordRoles::completes)) ifEnded_ = Next::kAbort;
  link_.Transmit(command);
  if (IsRefusal(link_.ReplyText)) ifEnded_ = before;
  return HandleReply(line);
}

TicketProcessor::Next TicketProcessor::HandleUnreadableLine(const std::string& line) {
  link_.ReplyText = "ERR**";
  const auto next = FromDecision(recovery_.DecodeDeviceError(link_.ReplyText, line, true));
  return next.value_or(Next::kGiveUp);
}

TicketProcessor::Next TicketProcessor::HandleInvalidLine(const std::string& line) {
  logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(line));
  link_.ReplyText = "ERR**";
  const auto next = FromDecision(recovery_.DecodeDeviceError(link_.ReplyText, line, true));
  return next.value_or(Next::kNextLine);
}

TicketProcessor::Next TicketProcessor::SendLongRunning(const std::string& command) {
  longWait_ = true;
  link_.Reopen(settings_.TimeWaitForLONGEtx);
  if (!link_.DeviceReady()) return Next::kGiveUp;
  ifEnded_ = Next::kAbort;
  link_.Transmit(command, std::max(DeviceLink::kReplyWait, settings_.TimeWaitForLONGEtx / 1000.0));
  if (IsFailure(link_.ReplyText))
    logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + FromWindows1252(link_.ReplyText));
  return Next::kNextLine;
}

void TicketProcessor::RestoreNormalWait() {
  if (!longWait_) return;
  longWait_ = false;
  logs_.Attempt(kLabel, [&] { link_.Reopen(settings_.TimeWaitForEtx); });
}

TicketProcessor::Next TicketProcessor::HandleReply(const Line& line) {
  // Each test looks at the reply as it then stands: settling one may have changed it.
  const std::string& reply = link_.ReplyText;
  if (reply.empty()) {
    if (const auto next = SettleSilence(line.text)) return *next;
  }
  if (IsLinkError(reply) && !IsTolerated(reply)) {
    if (const auto next = SettleSilence(line.text)) return *next;
  }
  if (!IsErrorReply(reply) || IsTolerated(reply)) return Next::kNextLine;
  // A line that a fresh receipt refuses again would be split for ever: the operator decides about it.
  if (Middle(reply, 6, 2) == "23" && !line.fromSplit) {
    SplitReceipt(line.text);
    return Next::kNextLine;
  }
  return SettleDeviceError(line.text);
}

std::optional<TicketProcessor::Next> TicketProcessor::SettleSilence(const std::string& line) {
  const auto next = FromDecision(recovery_.DecodeDeviceError(link_.ReplyText, line, true));
  if (next) ifEnded_ = *next;
  link_.Bounce();
  return next;
}

TicketProcessor::Next TicketProcessor::SettleDeviceError(const std::string& line) {
  const int decision = recovery_.DecodeDeviceError(link_.ReplyText, line, true);
  if (decision == recovery::kGoOn) return GoOnAfterFault();
  return FromDecision(decision).value_or(Next::kNextLine);
}

TicketProcessor::Next TicketProcessor::GoOnAfterFault() {
  // A query that finds a receipt open leaves no reply behind, so none can be an error here.
  if (!cash_.QueryCashStatus()) return Next::kNextLine;
  logs_.WrErr(LoadMessage(MessageId::kResumedAfterPaperOut));
  cash_.InvioVOID();
  // A receipt that could not be voided is still open when the file starts again, and is dealt with there.
  if (!IsErrorReply(link_.ReplyText)) loop_.Pause(300ms);
  return Next::kRestart;
}

void TicketProcessor::SplitReceipt(const std::string& rejectedLine) {
  logs_.WrLog(LoadMessage(MessageId::kReceiptSplit));
  pending_.push_front({rejectedLine, true});
  pending_.push_front({kReceiptSplitLine, true});
  logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(rejectedLine));
}

std::optional<TicketProcessor::Next> TicketProcessor::FromDecision(int decision) {
  switch (decision) {
    case recovery::kPrinted: return Next::kFinish;
    case recovery::kReprint: return Next::kRestart;
    case recovery::kAbort: return Next::kAbort;
    default: return std::nullopt;
  }
}

}  // namespace orvenza
