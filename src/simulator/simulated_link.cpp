#include "simulator/simulated_link.h"

#include <algorithm>
#include <utility>

namespace orvenza {
namespace {

constexpr int kUsualSpeed = 19200;  // Until the program sets another.
constexpr std::int64_t kBitsPerCharacter = 10;

std::string_view NameOf(LinkProperty property) {
  switch (property) {
    case LinkProperty::kBaudRate: return "BaudRate";
    case LinkProperty::kParity: return "Parity";
    case LinkProperty::kDataBits: return "DataBits";
    case LinkProperty::kStopBits: return "StopBits";
    case LinkProperty::kIdentifier: return "Identifier";
    case LinkProperty::kAcknowledgementWait: return "AcknowledgementWait";
    case LinkProperty::kEndOfTextWait: return "EndOfTextWait";
    case LinkProperty::kFrameRetries: return "FrameRetries";
    case LinkProperty::kMessageRetries: return "MessageRetries";
    case LinkProperty::kPortNumber: return "PortNumber";
  }
  return "";
}

void Keep(std::deque<std::string>& list, std::string text) {
  list.push_back(std::move(text));
  if (list.size() > SimulatedLink::kKept) list.pop_front();
}

}  // namespace

SimulatedLink::SimulatedLink(SimulatedRegister& device, Scheduler& scheduler, FaultScript script)
    : device_(device),
      scheduler_(scheduler),
      script_(std::move(script)),
      occurrences_(script_.faults.size()),
      connection_(std::make_shared<bool>()),
      alive_(std::make_shared<bool>()) {
  for (const Fault& fault : script_.faults) {
    if (!fault.prefix.empty()) continue;
    if (fault.after.count() == 0)
      Strike(fault);
    else
      At(alive_, fault.after, [this, &fault] { Strike(fault); });
  }
}

std::optional<int> SimulatedLink::Property(LinkProperty property) const {
  const auto found = properties_.find(property);
  return found == properties_.end() ? std::nullopt : std::optional(found->second);
}

void SimulatedLink::Send() {
  if (!open_) return;
  ++sentCount_;
  Keep(sent_, message_);
  Tell(LineEvent::kSent, message_);
  const Disturbance disturbance = Disturb(message_);
  if (!powerOn_ || !cableIn_) return;
  At(connection_, LineTime(message_.size()),
     [this, command = message_, disturbance] { Transmitted(command, disturbance); });
}

bool SimulatedLink::DevicePresent() {
  const bool present = open_ && powerOn_ && cableIn_ && absentReads_ == 0;
  if (absentReads_ > 0) --absentReads_;
  if (!present) Tell(LineEvent::kAbsent, {});
  return present;
}

void SimulatedLink::SetPortOpen(bool open) {
  Keep(settings_, open ? "PortOpen 1" : "PortOpen 0");
  if (open == open_) return;
  if (open && failingOpens_ > 0) {
    --failingOpens_;
  } else if (!open || Property(LinkProperty::kBaudRate).value_or(kUsualSpeed) > 0) {
    open_ = open;
  }
  if (!open) connection_ = std::make_shared<bool>();
  Tell(LineEvent::kPort, !open ? "closed" : open_ ? "open" : "not open");
}

void SimulatedLink::SetReset(bool reset) { Keep(settings_, reset ? "Reset 1" : "Reset 0"); }

void SimulatedLink::SetProperty(LinkProperty property, int value) {
  properties_[property] = value;
  Keep(settings_, std::string(NameOf(property)) + " " + std::to_string(value));
}

SimulatedLink::Disturbance SimulatedLink::Disturb(const std::string& command) {
  Disturbance disturbance{TakeAwaiting(), {}};
  for (std::size_t i = 0; i < script_.faults.size(); ++i) {
    const Fault& fault = script_.faults[i];
    if (fault.prefix.empty() || !command.starts_with(fault.prefix)) continue;
    const std::size_t occurrence = ++occurrences_[i];
    if (occurrence < fault.first || occurrence - fault.first >= fault.times) continue;
    if (fault.kind == FaultKind::kPaperOut)
      disturbance.paperOut = fault.paper;
    else if (!StrikeRegister(fault) && !disturbance.fault)
      disturbance.fault = fault;
  }
  return disturbance;
}

std::optional<Fault> SimulatedLink::TakeAwaiting() {
  if (!awaiting_ || awaiting_->times == Fault::kAlways) return awaiting_;
  std::optional<Fault> fault = std::exchange(awaiting_, std::nullopt);
  if (faultObserver_) faultObserver_();
  return fault;
}

void SimulatedLink::Strike(const Fault& fault) {
  if (!StrikeRegister(fault)) awaiting_ = fault;
  if (faultObserver_) faultObserver_();
}

void SimulatedLink::Switch(bool& connected, bool on) {
  connected = on;
  if (!on) connection_ = std::make_shared<bool>();
}

bool SimulatedLink::StrikeRegister(const Fault& fault) {
  switch (fault.kind) {
    case FaultKind::kAbsent: absentReads_ = fault.number; return true;
    case FaultKind::kPortFails: failingOpens_ = fault.number; return true;
    case FaultKind::kPaperOut: device_.RunOutOfPaper(fault.paper); return true;
    case FaultKind::kKeyedIn:
      if (powerOn_) device_.KeyInItem();
      return true;
    case FaultKind::kPaidThere:
      if (powerOn_) device_.PayWhatWasKeyedIn();
      return true;
    case FaultKind::kPower: Switch(powerOn_, fault.on); return true;
    case FaultKind::kCable: Switch(cableIn_, fault.on); return true;
    case FaultKind::kKey: device_.TurnKey(fault.on); return true;
    case FaultKind::kPaper: device_.SetPaper(fault.paper, fault.on); return true;
    case FaultKind::kNone: awaiting_.reset(); return true;
    case FaultKind::kReply:
    case FaultKind::kSilence:
    case FaultKind::kLinkError:
    case FaultKind::kLoseReply:
    case FaultKind::kLate: break;
  }
  return false;
}

void SimulatedLink::Transmitted(const std::string& command, const Disturbance& disturbance) {
  if (disturbance.paperOut) device_.RunOutOfPaper(*disturbance.paperOut);
  if (!disturbance.fault) return Answer(command, device_.Execute(command));
  const Fault& fault = *disturbance.fault;
  switch (fault.kind) {
    case FaultKind::kReply: return Answer(command, fault.text);
    case FaultKind::kSilence: return;
    case FaultKind::kLinkError: return RaiseLinkError(fault.number);
    case FaultKind::kLoseReply: device_.Execute(command); return;
    case FaultKind::kLate:
      return Answer(command, device_.Execute(command), std::chrono::milliseconds(fault.number));
    case FaultKind::kPaperOut:
    case FaultKind::kAbsent:
    case FaultKind::kPortFails:
    case FaultKind::kKeyedIn:
    case FaultKind::kPaidThere:
    case FaultKind::kPower:
    case FaultKind::kCable:
    case FaultKind::kKey:
    case FaultKind::kPaper:
    case FaultKind::kNone: return;  // Already carried out by StrikeRegister.
  }
}

void SimulatedLink::Answer(const std::string& command, const std::string& reply,
                           std::chrono::nanoseconds late) {
  // Measured over both texts together, so that rounding errors of the two parts do not add up.
  const auto delay = LineTime(command.size() + reply.size()) - LineTime(command.size()) + late;
  if (delay.count() == 0) return Deliver(reply);
  At(connection_, delay, [this, reply] { Deliver(reply); });
}

void SimulatedLink::Deliver(const std::string& reply) {
  received_ = reply;
  Tell(LineEvent::kReceived, reply);
  if (events_ != nullptr) events_->ReplyReceived();
}

void SimulatedLink::RaiseLinkError(int number) {
  Tell(LineEvent::kLinkError, std::to_string(number));
  if (events_ == nullptr) return;
  if (number == 1) events_->LinkError1();
  if (number == 2) events_->LinkError2();
  if (number == 3) events_->LinkError3();
}

void SimulatedLink::At(const std::weak_ptr<bool>& token, std::chrono::nanoseconds delay,
                       std::function<void()> action) {
  scheduler_.After(delay, [token, action = std::move(action)] {
    if (!token.expired()) action();
  });
}

std::chrono::nanoseconds SimulatedLink::LineTime(std::size_t characters) const {
  const int speed = script_.speed.value_or(Property(LinkProperty::kBaudRate).value_or(kUsualSpeed));
  if (speed <= 0) return {};
  return std::chrono::nanoseconds(static_cast<std::int64_t>(characters) * kBitsPerCharacter * 1'000'000'000 /
                                  speed);
}

void SimulatedLink::Tell(LineEvent event, const std::string& text) {
  if (observer_) observer_(event, text);
}

}  // namespace orvenza
