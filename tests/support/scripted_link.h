#pragma once

#include <chrono>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "device/ecr_link.h"
#include "platform/event_pump.h"
#include "support/faulty_files.h"

namespace orvenza::test {

/// A link control that plays prepared replies and records its calls.
class ScriptedLink : public EcrLink {
 public:
  explicit ScriptedLink(Scheduler& scheduler) : scheduler_(scheduler) {}

  std::vector<std::string> sent;   ///< Every command sent.
  std::vector<std::string> calls;  ///< Every property set: "reset 1", "port number 3", "open 1".
  std::deque<bool>
      presence;  ///< Results of the next presence queries; after them the last one repeats, by default true.
  int presenceReads = 0;
  int refusedOpens = 0;  ///< Number of further attempts to open the port that fail.
  bool open = false;

  /// Adds the reply to the next command without one. "ERR-1" to "ERR-3" are raised as link errors.
  void Reply(std::string text, std::chrono::nanoseconds after = {}) {
    replies_.push_back({std::move(text), after});
  }
  void NoReply() { replies_.push_back({std::nullopt, {}}); }

  /// The reply to every command that begins with `code` and has no other. Without any reply there is silence.
  void Always(const std::string& code, std::string text) { standing_[code] = std::move(text); }

  /// Raises an event that no command asked for.
  void Raise(const std::string& text) {
    if (text == "ERR-1") return events_->LinkError1();
    if (text == "ERR-2") return events_->LinkError2();
    if (text == "ERR-3") return events_->LinkError3();
    received_ = text;
    events_->ReplyReceived();
  }

  bool Listening() const { return events_ != nullptr; }

  void SetEvents(EcrLinkEvents* events) override { events_ = events; }
  std::string RxMessage() override { return received_; }
  void SetMessage(const std::string& text) override { message_ = text; }
  void Send() override {
    sent.push_back(message_);
    const Answer answer = TakeAnswer();
    if (answer.text) scheduler_.After(answer.delay, [this, text = *answer.text] { Raise(text); });
  }
  bool DevicePresent() override {
    ++presenceReads;
    if (presence.empty()) return true;
    const bool present = presence.front();
    if (presence.size() > 1) presence.pop_front();
    return present;
  }
  bool PortOpen() override { return open; }
  void SetPortOpen(bool value) override {
    calls.push_back(value ? "open 1" : "open 0");
    open = value && refusedOpens == 0;
    if (value && refusedOpens > 0) --refusedOpens;
  }
  void SetReset(bool reset) override { calls.push_back(reset ? "reset 1" : "reset 0"); }
  void SetProperty(LinkProperty property, int value) override {
    calls.push_back(Name(property) + " " + std::to_string(value));
  }

 private:
  struct Answer {
    std::optional<std::string> text;
    std::chrono::nanoseconds delay{};
  };

  Answer TakeAnswer() {
    if (!replies_.empty()) {
      const Answer answer = replies_.front();
      replies_.pop_front();
      return answer;
    }
    for (const auto& [code, text] : standing_) {
      if (message_.starts_with(code)) return {text};
    }
    return {};
  }

  static std::string Name(LinkProperty property) {
    switch (property) {
      case LinkProperty::kBaudRate: return "speed";
      case LinkProperty::kParity: return "parity";
      case LinkProperty::kDataBits: return "data bits";
      case LinkProperty::kStopBits: return "stop bits";
      case LinkProperty::kIdentifier: return "identifier";
      case LinkProperty::kAcknowledgementWait: return "acknowledgement wait";
      case LinkProperty::kEndOfTextWait: return "end-of-text wait";
      case LinkProperty::kFrameRetries: return "frame retries";
      case LinkProperty::kMessageRetries: return "message retries";
      case LinkProperty::kPortNumber: return "port number";
    }
    return "?";
  }

  Scheduler& scheduler_;
  EcrLinkEvents* events_ = nullptr;
  std::deque<Answer> replies_;
  std::map<std::string, std::string> standing_;
  std::string message_;
  std::string received_;
};

/// A link control whose members fail on demand, by name; a failing member has no effect.
class FaultyLink : public EcrLink, public Faults {
 public:
  explicit FaultyLink(EcrLink& real) : real_(real) {}

  void SetEvents(EcrLinkEvents* events) override { real_.SetEvents(events); }
  std::string RxMessage() override {
    Meet("RxMessage", "");
    return real_.RxMessage();
  }
  void SetMessage(const std::string& text) override {
    Meet("SetMessage", text);
    real_.SetMessage(text);
  }
  void Send() override {
    Meet("Send", "");
    real_.Send();
  }
  bool DevicePresent() override {
    Meet("DevicePresent", "");
    return real_.DevicePresent();
  }
  bool PortOpen() override {
    Meet("PortOpen", "");
    return real_.PortOpen();
  }
  void SetPortOpen(bool open) override {
    Meet("SetPortOpen", open ? "open" : "close");
    real_.SetPortOpen(open);
  }
  void SetReset(bool reset) override {
    Meet("SetReset", "");
    real_.SetReset(reset);
  }
  void SetProperty(LinkProperty property, int value) override {
    Meet("SetProperty", "");
    real_.SetProperty(property, value);
  }

 private:
  EcrLink& real_;
};

}  // namespace orvenza::test
