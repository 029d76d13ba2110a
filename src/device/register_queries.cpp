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

/// Whether a status query must be sent again in its other form.
bool WantsOtherForm(const std::string& code, const Reply& reply) {
  return code == kStatus && reply.IsError("16");
}

}  // namespace

RegisterQueries::RegisterQueries(DeviceLink& link, CashDialogues& cash, ErrorRecovery& recovery,
                                 LinkDialogs& dialogs, Logs& logs, EventLoop& loop, PollTimer& timer)
    : link_(link),
      cash_(cash),
      recovery_(recovery),
      dialogs_(dialogs),
      logs_(logs),
      loop_(loop),
      timer_(timer) {}

std::optional<std::string> RegisterQueries::StatusQuery(Asking asking) { return Query(kStatus, asking); }

std::optional<std::string> RegisterQueries::IdentityQuery(Asking asking) {
  identity_ = RegisterIdentity{};
  auto reply = Query(kIdentity, asking);
  if (reply) LearnIdentity(*reply);
  return reply;
}

std::optional<std::string> RegisterQueries::ClockQuery(Asking asking) { return Query(kClock, asking); }

std::optional<std::string> RegisterQueries::Query(const std::string& code, Asking asking) {
  return asking == Asking::kQuiet ? QuietlyQuery(code) : AttendedQuery(code);
}

std::optional<std::string> RegisterQueries::QuietlyQuery(const std::string& code) {
  Reply reply = QuietQuery(link_, logs_, code, kFirstData);
  if (WantsOtherForm(code, reply)) reply = QuietQuery(link_, logs_, code, kSecondData);
  if (!reply.Is(Reply::Kind::kDone)) return std::nullopt;
  return reply.Text();
}

std::optional<std::string> RegisterQueries::AttendedQuery(const std::string& code) {
  std::string data = kFirstData;
  for (;;) {
    loop_.CheckEnd();
    link_.ApplyChangedSettings();
    if (!link_.DeviceReady()) {
      // After three alarms the operator may give up the register.
      if (!link_.Present() && !AskRetry(LoadMessage(MessageId::kNoReply))) return std::nullopt;
      continue;
    }
    const Reply reply = link_.Transmit(code + data);
    if (reply.Is(Reply::Kind::kDone)) {
      if (code == kStatus) cash_.ReceiptIsOurs = false;  // none is open
      return reply.Text();
    }
    if (data == kFirstData && WantsOtherForm(code, reply)) {
      data = kSecondData;
    } else if (!SettleFailure(reply)) {
      return std::nullopt;
    }
  }
}

bool RegisterQueries::SettleFailure(const Reply& reply) {
  if (reply.IsError("17")) {
    if (cash_.MayVoid()) VoidOpenReceipt();
    return true;
  }
  const bool deviceError = reply.IsError() && !reply.Is(Reply::Kind::kLinkError);
  // An error that was resolved without a dialog is followed by a question, so that a register that keeps
  // refusing does not keep the program busy unnoticed.
  if (deviceError && recovery_.DecodeDeviceError(reply, {}, Choices::kNone) != Decision::kNothing) {
    ReopenLink();
    return true;
  }
  return AskRetry(deviceError ? LoadMessage(MessageId::kWrongReply) : QueryFailureText(reply));
}

bool RegisterQueries::AskRetry(const std::string& text) {
  if (!dialogs_.AskRetry(text)) return false;
  ReopenLink();
  return true;
}

void RegisterQueries::ReopenLink() {
  const PollingPause pause(timer_);
  link_.Reopen();
}

void RegisterQueries::VoidOpenReceipt() {
  dialogs_.AnnounceVoid();
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
