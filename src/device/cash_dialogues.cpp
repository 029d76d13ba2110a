#include "device/cash_dialogues.h"

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"
#include "device/quiet_query.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr int kStatusTries = 10;
constexpr int kCommandTries = 4;
constexpr int kVoidTries = 3;
/// Number of consecutive accepted voids without effect before the operator is asked.
constexpr int kVainVoids = 10;
constexpr const char* kStatusCommand = "321701";
constexpr const char* kNoError = "00";

/// The payment of zero that closes a receipt. `data` is the register's last error code.
std::string ClosingPayment(const std::string& data) { return "1036" + data + "000000000"; }

}  // namespace

CashStatus CashDialogues::QueryCashStatus() {
  for (;;) {
    const CashStatus status = ReadStatus();
    if (status.read || Policy().goesOnWithoutStatus) return status;
    AskToReadAgain(status.unread);
    if (status.unread.Is(Reply::Kind::kPaperOut)) SendRestart();
  }
}

CashStatus CashDialogues::ReadStatus() {
  for (int tries = kStatusTries;;) {
    const Reply reply = link_.Exchange(kStatusCommand);
    if (reply.IsError("17")) return {.receiptOpen = true, .unread = {}};
    if (reply.Is(Reply::Kind::kDone)) {
      CorrectClock();
      return {};
    }
    LogReply(reply);
    // The reply may come late, and would be taken for that to a later status query.
    if (reply.Is(Reply::Kind::kSilence) && !Policy().goesOnWithoutStatus) link_.Bounce();
    if (--tries == 0) {
      logs_.WrErr(LoadMessage(MessageId::kStatusNotRead));
      return {.receiptOpen = false, .read = false, .unread = reply};
    }
    loop_.Pause(500ms);
  }
}

void CashDialogues::AskToReadAgain(const Reply& unread) {
  loop_.CheckEnd();
  std::string question = LoadMessage(MessageId::kStatusNotRead);
  if (unread.Is(Reply::Kind::kPaperOut)) {
    question = LoadMessage(unread.Code() == "01" ? MessageId::kJournalPaperOutWarning
                                                 : MessageId::kReceiptPaperOutWarning);
    question += " " + LoadMessage(MessageId::kReplacePaper);
  }
  if (!linkDialogs_.AskRetry(question)) throw ProgramEnd{.unload = true};
  link_.Reopen();
}

void CashDialogues::CorrectClock() {
  if (settings_.PcTimeCorrection <= 0) return;
  const Reply reply = QuietQuery(link_, logs_, "4201", kNoError);
  if (reply.Is(Reply::Kind::kDone)) clockCorrection_.Correct(reply.Text());
}

void CashDialogues::InvioRIAVVIO() {
  if (!SendRestart() && Policy().goesOnWithoutStatus) return;
  AwaitStatus();
}

bool CashDialogues::SendRestart() {
  printingRestarted_ = true;
  std::string data = kNoError;
  for (int tries = kCommandTries; tries > 0;) {
    const Reply reply = link_.Exchange("1149" + data);
    if (Policy().IsDone(CommandUse::kCorrection, reply)) return true;
    NoteFailure(reply, data);
    if (--tries > 0) loop_.Pause(200ms);
  }
  logs_.WrErr(LoadMessage(MessageId::kRestartNotSent));
  return false;
}

/// Prepares the next attempt of a command that was not carried out.
void CashDialogues::NoteFailure(const Reply& reply, std::string& data) {
  const bool coded = reply.IsError() && !reply.Is(Reply::Kind::kLinkError);
  if (coded)
    data = reply.FirstCode();  // the register wants its own error code back
  else
    LogReply(reply);
}

void CashDialogues::AwaitStatus() {
  CashStatus status;
  do {
    loop_.CheckEnd();
    loop_.Pause(3000ms);
    status = QueryCashStatus();
  } while (!status.unread.Is(Reply::Kind::kSilence));
}

Reply CashDialogues::InvioVOID() {
  std::string data = kNoError;
  bool close = false;
  for (int tries = kCommandTries;;) {
    const Reply reply = link_.Exchange(close ? ClosingPayment(data) : "1028" + data);
    if (Policy().IsDone(CommandUse::kCorrection, reply)) return PauseAfterVoid(reply);
    close = false;
    NoteFailure(reply, data);
    if (reply.Is(Reply::Kind::kRefused) && reply.Code() == "11") {
      const CashStatus status = QueryCashStatus();
      if (!status.receiptOpen) return status.unread;
      close = OperatorWantsAutomaticClose();
      if (!close) return PauseAfterVoid({});
    }
    if (--tries <= 0 && !close) {
      logs_.WrErr(LoadMessage(MessageId::kVoidNotSent));
      return reply;
    }
    loop_.Pause(200ms);
  }
}

Reply CashDialogues::PauseAfterVoid(const Reply& reply) {
  loop_.Pause(1000ms);
  return link_.LatestReply(reply);
}

bool CashDialogues::CloseReceiptLeftOpen() {
  const EndBeforeSending heeded(link_);
  printingRestarted_ = false;
  int tries = kVoidTries;
  int accepted = 0;
  for (;;) {
    const CashStatus status = QueryCashStatus();
    if (!status.receiptOpen) {
      ReceiptIsOurs = ReceiptIsOurs && !status.read;
      return status.read;
    }
    if (!MayVoid()) continue;
    logs_.WrErr(LoadMessage(MessageId::kVoidingReceipt));
    const Reply reply = InvioVOID();
    if (Policy().IsDone(CommandUse::kOther, reply) ? ++accepted < kVainVoids : --tries >= 1) continue;
    if (OperatorWantsAutomaticClose()) {
      const Reply latest = link_.LatestReply(reply);
      link_.Exchange(ClosingPayment(latest.IsError() ? latest.FirstCode() : kNoError));
    }
    tries = kVoidTries;
    accepted = 0;
  }
}

bool CashDialogues::MayVoid() {
  if (ReceiptIsOurs || Policy().voidsForeignReceipts) return true;
  loop_.CheckEnd();
  const std::string question = own_text::kForeignReceipt + std::string(kLineBreak) + own_text::kForeignClosed;
  logs_.WrErr(own_text::kForeignReceipt);
  const MessageStyle style{MessageIcon::kQuestion, MessageButtons::kYesNo};
  // The first button has the focus, so Enter voids nothing. A receipt that is to be voided is as good as
  // ours.
  ReceiptIsOurs =
      messages_.ShowOperatorMessage(question, style, LoadMessage(MessageId::kWarning)) == MessageResult::kNo;
  return ReceiptIsOurs;
}

bool CashDialogues::VoidInterruptedReceipt() {
  if (!QueryCashStatus().receiptOpen) return false;
  logs_.WrErr(LoadMessage(MessageId::kResumedAfterPaperOut));
  // A receipt that could not be voided is still open when the ticket starts again, and is handled there.
  if (!InvioVOID().IsError()) loop_.Pause(300ms);
  return true;
}

bool CashDialogues::OperatorWantsAutomaticClose() {
  const std::string question = LoadMessage(MessageId::kReceiptNotVoided) + std::string(kLineBreak) +
                               LoadMessage(MessageId::kCloseReceiptQuestion);
  const MessageStyle style{MessageIcon::kExclamation, MessageButtons::kYesNo, DefaultButton::kSecond};
  const bool wanted =
      messages_.ShowOperatorMessage(question, style, LoadMessage(MessageId::kWarning)) == MessageResult::kYes;
  if (wanted && OnClosedAutomatically) OnClosedAutomatically();
  return wanted;
}

void CashDialogues::LogReply(const Reply& reply) {
  logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + FromWindows1252(reply.Text()));
}

}  // namespace orvenza
