#include "device/device_link.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/catalogue.h"
#include "device/doubt_policy.h"
#include "platform/system_error.h"
#include "ui/end_confirmation.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kFailureLabel = "EcrLinkX1 - ";
constexpr int kPresenceReads = 3;
constexpr std::size_t kCodeLength = 4;
constexpr double kSecondsPerDay = 86400;
/// Longest time, in seconds, that the end of the program waits for a reply.
constexpr auto kLongestHold = 60s;
/// A longer delivery was a loop of its own, such as an open menu, which may have held up a reply.
constexpr auto kLongDelivery = 100ms;
/// Minimum remaining wait after such a delivery.
constexpr auto kAfterLongDelivery = 1s;

}  // namespace

DeviceLink::DeviceLink(EcrLink& control, const AppSettings& settings, Logs& logs, LinkDialogs& dialogs,
                       EventLoop& loop, const Clock& clock)
    : control_(control), settings_(settings), logs_(logs), dialogs_(dialogs), loop_(loop), clock_(clock) {
  control_.SetEvents(this);
}

DeviceLink::~DeviceLink() { control_.SetEvents(nullptr); }

void DeviceLink::OpenDeviceLink(int endOfTextWait) {
  endOfTextWait_ = endOfTextWait;
  while (!TryOpen()) {
    loop_.CheckEnd();
    const std::string port = " ( COM" + std::to_string(settings_.ComPortNumber) + " )";
    if (!dialogs_.AskRetry(LoadMessage(MessageId::kPortNotOpened) + port)) throw ProgramEnd{.unload = false};
    SetPort(false);
    loop_.Pause(1000ms);
  }
}

void DeviceLink::ClosePort() { SetPort(false); }

void DeviceLink::Reopen() { Reopen(settings_.TimeWaitForEtx); }

void DeviceLink::ReopenForLongCommand() { Reopen(settings_.TimeWaitForLONGEtx); }

void DeviceLink::Reopen(int endOfTextWait) {
  ClosePort();
  loop_.Pause(100ms);
  OpenDeviceLink(endOfTextWait);
}

void DeviceLink::Bounce() {
  ClosePort();
  loop_.Pause(1000ms);
  // A port that stays closed would go unnoticed: the register would only appear absent forever.
  if (!OpenPort()) OpenDeviceLink(endOfTextWait_);
}

bool DeviceLink::TryOpen() {
  const auto serial = logs_.Attempt(kFailureLabel, [&] {
    const auto parts = SplitSerialSettings(settings_.ComSettings);
    if (!parts) throw SystemError(error_number::kInvalidArgument, "Settings=" + settings_.ComSettings);
    return *parts;
  });
  if (!serial || !Reset()) return false;
  SetProperties(*serial);
  return OpenPort();
}

bool DeviceLink::Reset() {
  bool created = true;
  logs_.Attempt(kFailureLabel, [&] {
    try {
      control_.SetReset(true);
    } catch (const SystemError& error) {
      created = error.Number() != error_number::kCannotCreateObject;
      throw;
    }
  });
  return created;
}

void DeviceLink::SetProperties(const SerialSettings& serial) {
  SetProperty(LinkProperty::kPortNumber, settings_.ComPortNumber);
  SetProperty(LinkProperty::kBaudRate, serial.speed);
  SetProperty(LinkProperty::kParity, serial.parity);
  SetProperty(LinkProperty::kDataBits, serial.dataBits);
  SetProperty(LinkProperty::kStopBits, serial.stopBits);
  SetProperty(LinkProperty::kFrameRetries, settings_.FrameRetry);
  SetProperty(LinkProperty::kAcknowledgementWait, settings_.TimeWaitForAck);
  SetProperty(LinkProperty::kEndOfTextWait, endOfTextWait_);
  SetProperty(LinkProperty::kMessageRetries, settings_.TxMessageRetry);
  SetProperty(LinkProperty::kIdentifier, static_cast<unsigned char>(settings_.Ident));
}

bool DeviceLink::OpenPort() {
  SetPort(true);
  return logs_.Attempt(kFailureLabel, [&] { return control_.PortOpen(); }).value_or(false);
}

/// If the control refuses a value, it keeps its own; the result shows when the port is opened.
void DeviceLink::SetProperty(LinkProperty property, int value) {
  logs_.Attempt(kFailureLabel, [&] { control_.SetProperty(property, value); });
}

void DeviceLink::SetPort(bool open) {
  logs_.Attempt(kFailureLabel, [&] { control_.SetPortOpen(open); });
}

bool DeviceLink::Present() {
  // Events are delivered before the check, not after it: a menu's dialog may be open for long, and the
  // register must be present when the command is sent. Also, a late reply must not be taken for the next one.
  loop_.Dispatch();
  // A failing control is reopened, which also replaces one that has died.
  const auto present = logs_.Attempt(kFailureLabel, [&] { return control_.DevicePresent(); });
  if (!present) reapply_ = true;
  return present.value_or(false);
}

bool DeviceLink::DeviceReady() {
  for (int read = 0; read < kPresenceReads; ++read) {
    if (Present()) return read == 0;
    dialogs_.AlarmAbsent();
  }
  return false;
}

void DeviceLink::ApplyChangedSettings() {
  if (std::exchange(reapply_, false)) Reopen(endOfTextWait_);
}

void DeviceLink::AwaitDevice() {
  ApplyChangedSettings();
  // The settings may change during a check, too.
  while (!DeviceReady() || reapply_) {
    loop_.CheckEnd();
    ApplyChangedSettings();
  }
  if (endBeforeSending_) loop_.CheckEnd();
}

Reply DeviceLink::Exchange(const std::string& command, double replyWait) {
  AwaitDevice();
  return Transmit(command, replyWait);
}

Reply DeviceLink::Transmit(const std::string& command, double replyWait) {
  ReplyArrived = false;
  code_ = command.substr(0, kCodeLength);
  waiting_ = true;
  const bool sent = logs_.Attempt(kFailureLabel, [&] {
    control_.SetMessage(command);
    control_.Send();
  });
  const bool replied = sent && WaitReply(replyWait, code_);
  waiting_ = false;
  const Reply reply = TakeReply();
  return replied ? reply : Reply();
}

Reply DeviceLink::TransmitLong(const std::string& command) {
  return Transmit(command, std::max(kReplyWait, settings_.TimeWaitForLONGEtx / 1000.0));
}

Reply DeviceLink::LatestReply(const Reply& reply) { return ReplyArrived ? TakeReply() : reply; }

Reply DeviceLink::TakeReply() {
  ReplyArrived = false;
  return {std::exchange(ReplyText, {}), code_};
}

bool DeviceLink::WaitReply(double replyWait, std::string_view code) {
  // The time of day restarts at midnight, so an ordinary wait begun just before deliberately ends only with a
  // reply, unless the policy ends it. All other waits use a clock that cannot be set.
  const bool endless = PolicyOf(settings_).waitsOnAtMidnight && replyWait == kReplyWait &&
                       clock_.SecondsSinceMidnight() + replyWait >= kSecondsPerDay;
  const auto ordinary =
      std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::duration<double>(replyWait));
  const auto deadline = clock_.Uptime() + ordinary;
  // The end of the program is delayed while the register may still answer, so that the fate of a command is
  // known.
  const auto held = clock_.Uptime() + std::min<std::chrono::nanoseconds>(ordinary, kLongestHold);
  auto grace = clock_.Uptime();
  for (auto last = grace;; loop_.Slice()) {
    loop_.Dispatch();
    if (ReplyArrived && !DropLateReply(code)) return true;
    const auto now = clock_.Uptime();
    if (last < deadline && now - last > kLongDelivery) grace = now + kAfterLongDelivery;
    last = now;
    if (now < grace) continue;
    if (!endless && now >= deadline) break;
    if (now >= held) loop_.CheckEnd();
    loop_.SkipIdle(now < held ? held : endless ? now + ordinary : deadline);
    last = clock_.Uptime();
  }
  unanswered_.emplace(code);
  return false;
}

bool DeviceLink::DropLateReply(std::string_view code) {
  if (ReplyText.starts_with(code) || unanswered_.erase(ReplyText.substr(0, kCodeLength)) == 0) return false;
  ReplyArrived = false;
  return true;
}

void DeviceLink::ReplyReceived() {
  Arrived(logs_.Attempt(kFailureLabel, [&] { return control_.RxMessage(); }).value_or(""));
}

void DeviceLink::Arrived(std::string reply) {
  if (!waiting_) unanswered_.erase(reply.substr(0, kCodeLength));  // the late reply to an earlier command
  ReplyText = std::move(reply);
  ReplyArrived = true;
}

}  // namespace orvenza
