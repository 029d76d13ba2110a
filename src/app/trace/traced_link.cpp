#include "app/trace/traced_link.h"

#include <utility>

#include "app/trace/event_words.h"
#include "app/trace/trace_mask.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Calls a member of the control and reports its failure to the trace.
template <typename Run>
auto Watched(FailureWatch& failures, const char* member, const Run& run) {
  const std::string attempt = std::string("use the link control: ") + member;
  try {
    if (failures.AnyFails()) failures.Worked(attempt);
    return run();
  } catch (const SystemError& failure) {
    failures.Failed(attempt, failure.Number());
    throw;
  }
}

}  // namespace

void TracedLink::Tell(LineEvent event, const std::string& text) {
  RecordLine(watches_.trace, event, text, [this](LinkProperty property) {
    const auto found = properties_.find(property);
    return found == properties_.end() ? 0 : found->second;
  });
}

void TracedLink::SetEvents(EcrLinkEvents* events) {
  events_ = events;
  link_.SetEvents(events == nullptr ? nullptr : this);
}

std::string TracedLink::RxMessage() {
  std::string reply = Watched(watches_.failures, "reply", [&] { return link_.RxMessage(); });
  if (std::exchange(replying_, false)) Tell(LineEvent::kReceived, reply);
  return reply;
}

void TracedLink::SetMessage(const std::string& text) {
  message_ = text;
  Watched(watches_.failures, "message", [&] { link_.SetMessage(text); });
}

/// Told first, as some controls raise the reply's event in here.
void TracedLink::Send() {
  if (open_) Tell(LineEvent::kSent, MaskCommand(message_));
  Watched(watches_.failures, "send", [&] { link_.Send(); });
}

bool TracedLink::DevicePresent() {
  const bool present = Watched(watches_.failures, "presence", [&] { return link_.DevicePresent(); });
  if (!present) Tell(LineEvent::kAbsent);
  if (present && std::exchange(absent_, false)) watches_.trace.Add("present");
  absent_ = !present;
  return present;
}

bool TracedLink::PortOpen() {
  const bool open = Watched(watches_.failures, "port", [&] { return link_.PortOpen(); });
  if (std::exchange(opening_, false)) {
    open_ = open;
    Tell(LineEvent::kPort, open ? "open" : "not open");
  }
  return open;
}

void TracedLink::SetPortOpen(bool open) {
  Watched(watches_.failures, open ? "open" : "close", [&] { link_.SetPortOpen(open); });
  opening_ = open && !open_;
  if (!open && std::exchange(open_, false)) Tell(LineEvent::kPort, "closed");
}

void TracedLink::SetReset(bool reset) {
  Watched(watches_.failures, "reset", [&] { link_.SetReset(reset); });
}

void TracedLink::SetProperty(LinkProperty property, int value) {
  Watched(watches_.failures, "property", [&] { link_.SetProperty(property, value); });
  properties_[property] = value;
}

void TracedLink::ReplyReceived() {
  replying_ = true;
  if (events_ != nullptr) events_->ReplyReceived();
  replying_ = false;
}

void TracedLink::LinkError1() {
  Tell(LineEvent::kLinkError, "1");
  if (events_ != nullptr) events_->LinkError1();
}

void TracedLink::LinkError2() {
  Tell(LineEvent::kLinkError, "2");
  if (events_ != nullptr) events_->LinkError2();
}

void TracedLink::LinkError3() {
  Tell(LineEvent::kLinkError, "3");
  if (events_ != nullptr) events_->LinkError3();
}

}  // namespace orvenza
