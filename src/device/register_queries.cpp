#include "device/register_queries.h"

#include <algorithm>

#include "core/catalogue.h"
#include "core/text.h"
#include "device/quiet_query.h"
#include "ui/end_confirmation.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kStatus = "3217";
constexpr const char* kIdentity = "1999";
constexpr const char* kClock = "4201";
constexpr const char* kFirstData = "00";
constexpr const char* kSecondData = "01";
constexpr const char* kGaveUp = "-";
constexpr const char* kQuiet = "*";

bool EndsWithCode(const std::string& reply, const char* code) {
  return IsErrorReply(reply) && reply.ends_with(code);
}

}  // namespace

RegisterQueries::RegisterQueries(DeviceLink& link, CashDialogues& cash, ErrorRecovery& recovery,
                                 OperatorMessages& messages, PortDialog& portDialog,
                                 const AppSettings& settings, Logs& logs, EventLoop& loop, PollTimer& timer,
                                 RegisterIdentity& identity)
    : link_(link),
      cash_(cash),
      recovery_(recovery),
      messages_(messages),
      portDialog_(portDialog),
      settings_(settings),
      logs_(logs),
      loop_(loop),
      timer_(timer),
      identity_(identity) {}

std::string RegisterQueries::StatusQuery(const std::string& argument) {
  std::string answer = Query(kStatus, argument);
  if (argument == kQuiet && !answer.empty() && settings_.PcTimeCorrection > 0) ClockQuery(kQuiet);
  return answer;
}

std::string RegisterQueries::IdentityQuery(const std::string& argument) {
  identity_ = RegisterIdentity{};
  std::string answer = Query(kIdentity, argument);
  if (!answer.empty() && answer != kGaveUp) LearnIdentity(answer);
  return answer;
}

std::string RegisterQueries::ClockQuery(const std::string& argument) { return Query(kClock, argument); }

std::string RegisterQueries::Query(const std::string& code, const std::string& argument) {
  if (argument != kQuiet) return AttendedQuery(code);
  bool answered = QuietQuery(link_, logs_, code, kFirstData);
  if (!answered && code == kStatus && EndsWithCode(link_.ReplyText, "16")) {
    answered = QuietQuery(link_, logs_, code, kSecondData);
  }
  return answered ? link_.ReplyText : std::string();
}

std::string RegisterQueries::AttendedQuery(const std::string& code) {
  std::string data = kFirstData;
  for (;;) {
    loop_.CheckEnd();
    link_.ApplyChangedSettings();
    if (!link_.DeviceReady()) {
      // Three alarms went unheeded: the operator may give the register up.
      if (!link_.Present() && !AskRetry(LoadMessage(MessageId::kNoReply))) return kGaveUp;
      continue;
    }
    link_.Transmit(code + data);
    if (link_.ReplyText.starts_with(code)) return link_.ReplyText;
    if (!SettleReply(code, data)) return kGaveUp;
  }
}

bool RegisterQueries::SettleReply(const std::string& code, std::string& data) {
  std::string& reply = link_.ReplyText;
  if (code == kStatus && data == kFirstData && EndsWithCode(reply, "16")) {
    data = kSecondData;
    return true;
  }
  if (EndsWithCode(reply, "17")) {
    VoidOpenReceipt();
    return true;
  }
  const bool deviceError = IsErrorReply(reply) && !IsLinkError(reply);
  // A decoding that settled the error in silence is followed by a question, so that a register that goes on
  // refusing does not keep the program busy unseen.
  if (deviceError && recovery_.DecodeDeviceError(reply, {}, false) != recovery::kNothing) {
    ReopenLink();
    return true;
  }
  return AskRetry(deviceError ? LoadMessage(MessageId::kWrongReply) : QueryFailureText(reply, code));
}

bool RegisterQueries::AskRetry(const std::string& text) {
  logs_.WrErr(std::string(text));
  const MessageResult answer =
      messages_.ShowOperatorMessage(text, {MessageIcon::kInformation, MessageButtons::kRetryCancelConfigure},
                                    LoadMessage(MessageId::kCommunicationWarning));
  if (answer == MessageResult::kConfigure) portDialog_.Show();
  if (answer == MessageResult::kCancel && ConfirmEnd(messages_, MessageIcon::kStop)) {
    logs_.WrErr(LoadMessage(MessageId::kLinkCancelled));
    return false;
  }
  ReopenLink();
  return true;
}

void RegisterQueries::ReopenLink() {
  const PollingPause pause(timer_);
  link_.Reopen(settings_.TimeWaitForEtx);
}

void RegisterQueries::VoidOpenReceipt() {
  const std::string text =
      LoadMessage(MessageId::kSendingVoid) + std::string(kLineBreak) + LoadMessage(MessageId::kCheckKey);
  messages_.ShowOperatorMessage(text, {MessageIcon::kExclamation}, LoadMessage(MessageId::kWarning));
  cash_.InvioVOID();
  loop_.Pause(1000ms);
  ReopenLink();
}

void RegisterQueries::LearnIdentity(const std::string& reply) {
  logs_.WrLog(LoadMessage(MessageId::kDeviceData) + " " +
              FromWindows1252(reply.substr(std::min<std::size_t>(4, reply.size()))));
  identity_.DeviceModel = Middle(reply, 7, 10);
  identity_.DeviceModel.resize(10, ' ');
  identity_.DeviceModel = std::string(DrivenAs(identity_.DeviceModel));
  identity_.DeviceRelease = Middle(reply, 17, 10);
  identity_.DeviceReleaseNumber = ReleaseNumber(identity_.DeviceRelease);
}

}  // namespace orvenza
