#include "device/cash_dialogues.h"

#include "core/catalogue.h"
#include "core/text.h"
#include "device/quiet_query.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr int kStatusTries = 10;
constexpr int kCommandTries = 4;
constexpr const char* kStatusCommand = "321701";
constexpr const char* kNoError = "00";
constexpr const char* kZeroAmount = "000000000";

bool IsReceiptOpen(std::string_view reply) { return IsErrorReply(reply) && Right(reply, 2) == "17"; }

std::string ErrorCode(std::string_view reply) { return std::string(Middle(reply, 4, 2)); }

}  // namespace

bool CashDialogues::QueryCashStatus() {
  for (int tries = kStatusTries; tries > 0;) {
    link_.Exchange(kStatusCommand);
    if (IsReceiptOpen(link_.ReplyText)) {
      link_.ReplyText.clear();
      return true;
    }
    if (link_.ReplyText.starts_with("3217")) {
      link_.ReplyText.clear();
      FollowStatusRead();
      return false;
    }
    LogReply();
    if (--tries > 0) loop_.Pause(500ms);
  }
  logs_.WrErr(LoadMessage(MessageId::kStatusNotRead));
  return false;
}

void CashDialogues::FollowStatusRead() {
  if (settings_.PcTimeCorrection <= 0) return;
  if (QuietQuery(link_, logs_, "4201", kNoError)) clockCorrection_.Correct(link_.ReplyText);
  link_.ReplyText.clear();
}

void CashDialogues::InvioRIAVVIO() {
  std::string data = kNoError;
  for (int tries = kCommandTries; tries > 0;) {
    link_.Exchange("1149" + data);
    if (!IsErrorReply(link_.ReplyText)) {  // silence counts as accepted
      bool receiptOpen = false;
      do {
        loop_.CheckEnd();
        loop_.Pause(3000ms);
        receiptOpen = QueryCashStatus();
      } while (!link_.ReplyText.empty() && !receiptOpen);
      return;
    }
    if (IsLinkError(link_.ReplyText)) {
      LogReply();
    } else {
      data = ErrorCode(link_.ReplyText);  // the register wants its own error code back
    }
    if (--tries > 0) loop_.Pause(200ms);
  }
  logs_.WrErr(LoadMessage(MessageId::kRestartNotSent));
}

void CashDialogues::InvioVOID() {
  std::string data = kNoError;
  std::string message = "1028" + data;
  for (int tries = kCommandTries;;) {
    link_.Exchange(message);
    const VoidStep step = ExamineVoidReply(data);
    if (step == VoidStep::kDone) return;
    const bool close = step == VoidStep::kCloseReceipt;
    if (--tries <= 0 && !close) {
      logs_.WrErr(LoadMessage(MessageId::kVoidNotSent));
      return;
    }
    loop_.Pause(200ms);
    message = close ? "1036" + data + kZeroAmount : "1028" + data;
  }
}

CashDialogues::VoidStep CashDialogues::ExamineVoidReply(std::string& data) {
  if (!IsErrorReply(link_.ReplyText)) {  // silence counts as voided
    loop_.Pause(1000ms);
    return VoidStep::kDone;
  }
  if (IsLinkError(link_.ReplyText)) {
    LogReply();
    return VoidStep::kVoidAgain;
  }
  data = ErrorCode(link_.ReplyText);
  if (Right(link_.ReplyText, 2) != "11") return VoidStep::kVoidAgain;
  if (!QueryCashStatus()) return VoidStep::kDone;
  if (OperatorWantsAutomaticClose()) return VoidStep::kCloseReceipt;
  loop_.Pause(1000ms);
  return VoidStep::kDone;
}

bool CashDialogues::OperatorWantsAutomaticClose() {
  const std::string question = LoadMessage(MessageId::kReceiptNotVoided) + std::string(kLineBreak) +
                               LoadMessage(MessageId::kCloseReceiptQuestion);
  const MessageStyle style{MessageIcon::kExclamation, MessageButtons::kYesNo, DefaultButton::kSecond};
  return messages_.ShowOperatorMessage(question, style, LoadMessage(MessageId::kWarning)) ==
         MessageResult::kYes;
}

void CashDialogues::LogReply() {
  logs_.WrErr(LoadMessage(MessageId::kEcrError) + " " + FromWindows1252(link_.ReplyText));
}

}  // namespace orvenza
