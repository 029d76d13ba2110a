#include "tickets/line_sender.h"

#include <optional>

#include "core/catalogue.h"
#include "core/text.h"
#include "device/reply_policy.h"
#include "tickets/logo_request.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

constexpr const char* kLabel = "Trasmissione ";

std::optional<Next> FromDecision(Decision decision) {
  switch (decision) {
    case Decision::kPrinted: return Next::kFinish;
    case Decision::kReprint: return Next::kRestart;
    case Decision::kAbort: return Next::kAbort;
    case Decision::kNothing:
    case Decision::kGoOn: break;
  }
  return std::nullopt;
}

}  // namespace

Next LineSender::Send(const std::string& line, const RecordFields& fields, bool maySplit) {
  RestoreNormalWait();
  if (fields.Count() == 0) return HandleUnreadableLine(line);
  const std::string command = translator_.TranslateRecord(fields);
  if (command.empty()) return HandleInvalidLine(line);
  if (command == kLogoMarker) {
    const LogoRequest request = LogoRequestOf(fields);
    const auto givenUp = [&] { ifEnded_ = Next::kAbort; };
    return logo_.Download(request.number, request.path, line, givenUp) ? Next::kNextLine : Next::kGiveUp;
  }
  if (IsLongRunning(command)) return SendLongRunning(command.substr(0, command.size() - 1));
  link_.AwaitDevice();
  const Next before = ifEnded_;
  if (HasRole(fields[0], &RecordRoles::completes)) ifEnded_ = Next::kAbort;
  const Reply reply = link_.Transmit(command);
  if (reply_policy::NotDone(reply)) ifEnded_ = before;
  return HandleReply(line, reply, maySplit);
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

Next LineSender::SendLongRunning(const std::string& command) {
  longWait_ = true;
  link_.ReopenForLongCommand();
  if (!link_.DeviceReady()) return Next::kGiveUp;
  ifEnded_ = Next::kAbort;
  const Reply reply = link_.TransmitLong(command);
  if (!reply_policy::Answered(reply))
    logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + FromWindows1252(reply.Text()));
  return Next::kNextLine;
}

void LineSender::RestoreNormalWait() {
  if (!longWait_) return;
  longWait_ = false;
  logs_.Attempt(kLabel, [&] { link_.Reopen(); });
}

Next LineSender::HandleReply(const std::string& line, Reply reply, bool maySplit) {
  if (reply.Is(Reply::Kind::kSilence)) {
    if (const auto next = SettleSilence(line, reply)) return *next;
    reply = link_.LatestReply(reply);
  }
  if (reply.Is(Reply::Kind::kLinkError) && !reply_policy::LineIsDone(reply)) {
    if (const auto next = SettleSilence(line, reply)) return *next;
    reply = link_.LatestReply(reply);
  }
  if (reply_policy::LineIsDone(reply)) return Next::kNextLine;
  if (reply.IsReceiptTooLong() && maySplit) return Next::kSplitReceipt;
  return SettleDeviceError(line, reply);
}

/// The register may still answer while the operator is asked, so the caller checks again.
std::optional<Next> LineSender::SettleSilence(const std::string& line, const Reply& reply) {
  const auto next = FromDecision(recovery_.DecodeDeviceError(reply, line, Choices::kOffered));
  if (next) ifEnded_ = *next;
  link_.Bounce();
  return next;
}

Next LineSender::SettleDeviceError(const std::string& line, const Reply& reply) {
  const Decision decision = recovery_.DecodeDeviceError(reply, line, Choices::kOffered);
  if (decision == Decision::kGoOn && cash_.VoidInterruptedReceipt()) return Next::kRestart;
  return FromDecision(decision).value_or(Next::kNextLine);
}

}  // namespace orvenza
