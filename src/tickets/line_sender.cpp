#include "tickets/line_sender.h"

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "tickets/logo_request.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Trasmissione ";

std::optional<Next> FromDecision(Decision decision) {
  switch (decision) {
    case Decision::kPrinted: return Next::kPrinted;
    case Decision::kReprint: return Next::kRestart;
    case Decision::kAbort: return Next::kAbort;
    case Decision::kNothing:
    case Decision::kGoOn: break;
  }
  return std::nullopt;
}

/// Whether a line is a void, after which no receipt is left to be completed.
bool OnlyVoids(const RecordFields& fields) {
  return HasRole(fields[0], &RecordRoles::endsReceipt) && !HasRole(fields[0], &RecordRoles::completes);
}

}  // namespace

LineSender::LineSender(DeviceLink& link, const AppSettings& settings, CashDialogues& cash,
                       ErrorRecovery& recovery, LogoDownload& logo, RecordTranslator& translator, Logs& logs,
                       TicketWitness& witness)
    : link_(link),
      settings_(settings),
      cash_(cash),
      recovery_(recovery),
      logo_(logo),
      translator_(translator),
      logs_(logs),
      witness_(witness) {
  recovery_.OnDecided = [this](Decision decision) {
    // What is open although the receipt is complete is another one.
    if (decision == Decision::kPrinted && completes_) cash_.ReceiptIsOurs = false;
    witness_.Decided(decision);
  };
  cash_.OnClosedAutomatically = [this] { witness_.ClosedAutomatically(); };
}

void LineSender::Begin(const DocumentProgress& progress) {
  progress_ = progress;
  ifEnded_ = Next::kLeave;
  completes_ = false;
}

Next LineSender::Send(const TicketLine& line, const RecordFields& fields) {
  RestoreNormalWait();
  const std::string command = fields.Count() == 0 ? std::string() : translator_.TranslateRecord(fields);
  if (command.empty()) witness_.Troubled({line.number, {}, false, line.text}, Reply::InvalidLine());
  if (fields.Count() == 0) return HandleUnreadableLine(line.text);
  if (command.empty()) return HandleInvalidLine(line.text);
  if (command == kLogoMarker) return SendLogo(line, fields);
  if (IsLongRunning(command)) return SendLongRunning(line, fields, command.substr(0, command.size() - 1));
  return SendOrdinary(line, fields, command);
}

Next LineSender::HandleUnreadableLine(const std::string& line) {
  return AskAboutInvalidLine(line).value_or(Next::kGiveUp);
}

Next LineSender::HandleInvalidLine(const std::string& line) {
  logs_.WrErr(LoadMessage(MessageId::kInvalidLine) + " " + LoggedLine(line));
  return AskAboutInvalidLine(line).value_or(Next::kNextLine);
}

std::optional<Next> LineSender::AskAboutInvalidLine(const std::string& line) {
  return FromDecision(recovery_.DecodeDeviceError(Reply::InvalidLine(), line, Choices::kOffered));
}

Next LineSender::SendLogo(const TicketLine& line, const RecordFields& fields) {
  const LogoRequest request = LogoRequestOf(fields);
  bool chosen = false;
  const auto givenUp = [&] {
    chosen = true;
    ifEnded_ = Next::kAbort;
  };
  logo_.OnTrouble = [&](const std::string& row, const Reply& reply) {
    witness_.Troubled({line.number, row, false, line.text}, reply);
  };
  if (logo_.Download(request.number, request.path, line.text, givenUp)) return Next::kNextLine;
  if (Policy().failureGivesUp) return Next::kGiveUp;
  return chosen ? Next::kAbort : AskAboutInvalidLine(line.text).value_or(Next::kGiveUp);
}

Next LineSender::SendOrdinary(const TicketLine& line, const RecordFields& fields,
                              const std::string& command) {
  link_.AwaitDevice();
  const Next before = ifEnded_;
  const bool completes = HasRole(fields[0], &RecordRoles::completes);
  if (completes && Policy().endGivesUp) ifEnded_ = Next::kAbort;
  const bool opens = HasRole(fields[0], &RecordRoles::opens);
  const Reply reply = Transmit(line, fields, {line.number, command, completes, line.text, opens}, false);
  if (reply.IsRefusal()) ifEnded_ = before;
  return HandleReply(CommandUse::kLine, line, fields, reply);
}

Next LineSender::SendLongRunning(const TicketLine& line, const RecordFields& fields,
                                 const std::string& command) {
  longWait_ = true;
  link_.ReopenForLongCommand();
  if (Policy().absenceGivesUpClosure) {
    if (!link_.DeviceReady()) return Next::kGiveUp;
  } else {
    link_.AwaitDevice();
  }
  if (Policy().endGivesUp) ifEnded_ = Next::kAbort;
  const Reply reply = Transmit(line, fields, {line.number, command, true, line.text}, true);
  const bool done = Policy().IsDone(CommandUse::kClosure, reply);
  if (done && !Policy().IsDone(CommandUse::kOther, reply))
    logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + FromWindows1252(reply.Text()));
  return HandleReply(CommandUse::kClosure, line, fields, reply);
}

Reply LineSender::Transmit(const TicketLine& line, const RecordFields& fields, const SentCommand& sent,
                           bool isLong) {
  completes_ = sent.completes;
  witness_.Sending(sent);
  cash_.ReceiptIsOurs = cash_.ReceiptIsOurs || sent.opens;
  const Reply reply = isLong ? link_.TransmitLong(sent.command) : link_.Transmit(sent.command);
  const bool done = Policy().IsDone(isLong ? CommandUse::kClosure : CommandUse::kLine, reply);
  if (done && line.divides) progress_.Divided(line.number);
  if (done && !line.divides) progress_.Done(line.number, fields[0]);
  if (done && sent.completes) cash_.ReceiptIsOurs = false;
  witness_.Replied(sent, reply, progress_);
  return reply;
}

void LineSender::RestoreNormalWait() {
  if (!longWait_) return;
  longWait_ = false;
  logs_.Attempt(kLabel, [&] { link_.Reopen(); });
}

Next LineSender::HandleReply(CommandUse use, const TicketLine& line, const RecordFields& fields,
                             Reply reply) {
  const auto isDone = [&] { return Policy().IsDone(use, reply); };
  if (reply.Is(Reply::Kind::kSilence) && !isDone()) {
    if (const auto next = SettleSilence(line.text, reply)) return *next;
    reply = link_.LatestReply(reply);
  }
  const bool unclear = reply.Is(Reply::Kind::kLinkError) || reply.Is(Reply::Kind::kGarbled);
  if (unclear && !isDone()) {
    if (const auto next = SettleSilence(line.text, reply)) return *next;
    reply = link_.LatestReply(reply);
  }
  if (isDone()) return Next::kNextLine;
  if (reply.IsReceiptTooLong() && !line.repeated) return Next::kSplitReceipt;
  return SettleDeviceError(line, fields, reply);
}

/// The register may still answer while the operator is asked, so the caller checks again.
std::optional<Next> LineSender::SettleSilence(const std::string& line, const Reply& reply) {
  const auto next = FromDecision(recovery_.DecodeDeviceError(reply, line, Choices::kOffered));
  if (next && (Policy().endGivesUp || *next == Next::kAbort)) ifEnded_ = *next;
  link_.Bounce();
  return next;
}

Next LineSender::SettleDeviceError(const TicketLine& line, const RecordFields& fields, const Reply& reply) {
  const Decision decision = recovery_.DecodeDeviceError(reply, line.text, Choices::kOffered);
  // Whether a receipt is open says nothing about a closure or a cash movement.
  const bool receiptTells = Policy().nextLineAfterPaperOut || !MayComplete(fields[0]) ||
                            !HasRole(fields[0], &RecordRoles::standsAlone);
  if (decision == Decision::kGoOn && receiptTells && cash_.VoidInterruptedReceipt()) return Next::kRestart;
  const auto next = FromDecision(decision);
  if (next) return *next;
  return Policy().nextLineAfterPaperOut ? Next::kNextLine : AfterPaperOut(fields);
}

/// No receipt is open: the line may have been carried out, or not.
Next LineSender::AfterPaperOut(const RecordFields& fields) {
  if (OnlyVoids(fields)) return Next::kNextLine;
  if (!MayComplete(fields[0])) return Next::kSameLine;
  return FromDecision(recovery_.AskInDoubt(LoadMessage(MessageId::kPaperOut), own_text::kCheckPaper))
      .value_or(Next::kGiveUp);
}

}  // namespace orvenza
