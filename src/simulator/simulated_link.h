#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "device/ecr_link.h"
#include "platform/event_pump.h"
#include "simulator/fault_script.h"
#include "simulator/simulated_register.h"

namespace orvenza {

/// What an observer of the line is told.
enum class LineEvent {
  kSent,       ///< The program transmits; the text is the command.
  kReceived,   ///< A reply arrives; the text is the reply.
  kLinkError,  ///< The text is the error's number.
  kPort,       ///< The text is "open", "not open" (the opening failed) or "closed".
  kAbsent,     ///< The program read that the register is absent; no text.
};

/// The link control in front of a simulated register, with the faults of a script. Events come through the
/// scheduler only, never from inside a call.
///
/// A command is carried out when its characters have gone over the line (10 bits each), and its reply arrives
/// after the time of its own characters. Closing the port drops what is still on its way. A command sent
/// while the port is closed is lost. The port does not open at a speed of zero bits a second or less. The
/// waits and retries of the control are taken and have no effect: silence is no event at all.
class SimulatedLink : public EcrLink {
 public:
  /// Commands and settings that are remembered; older ones are forgotten, so that days do not fill the
  /// memory.
  static constexpr std::size_t kKept = 10000;

  /// `device` and `scheduler` must outlive the link; what the scheduler still holds for a link that is gone
  /// does nothing. Faults with a time of their own count it from here.
  SimulatedLink(SimulatedRegister& device, Scheduler& scheduler, FaultScript script = {});
  SimulatedLink(const SimulatedLink&) = delete;
  SimulatedLink& operator=(const SimulatedLink&) = delete;

  using Observer = std::function<void(LineEvent, const std::string& text)>;
  void SetObserver(Observer observer) { observer_ = std::move(observer); }

  /// The commands sent, oldest first.
  const std::deque<std::string>& Sent() const { return sent_; }
  /// How many were sent, the forgotten ones included.
  std::size_t SentCount() const { return sentCount_; }

  /// What was set on the control, in order: "Reset 1", "PortNumber 1", "BaudRate 19200", ... "PortOpen 1".
  const std::deque<std::string>& Settings() const { return settings_; }
  /// The last value of a property, nothing when it was never set.
  std::optional<int> Property(LinkProperty property) const;

  void SetEvents(EcrLinkEvents* events) override { events_ = events; }
  std::string RxMessage() override { return received_; }
  void SetMessage(const std::string& text) override { message_ = text; }
  void Send() override;
  /// False while the port is closed.
  bool DevicePresent() override;
  bool PortOpen() override { return open_; }
  void SetPortOpen(bool open) override;
  void SetReset(bool reset) override;
  void SetProperty(LinkProperty property, int value) override;

 private:
  /// What the script does to one command.
  struct Disturbance {
    const Fault* fault = nullptr;  ///< The fault of the exchange itself; null: none.
    std::optional<Paper> paperOut;
  };

  Disturbance Disturb(const std::string& command);
  void Strike(const Fault& fault);
  void Transmitted(const std::string& command, const Disturbance& disturbance);
  void Deliver(const std::string& reply);
  void RaiseLinkError(int number);
  /// Runs `action` after `delay`, unless what `token` stands for is gone by then.
  void At(const std::weak_ptr<bool>& token, std::chrono::nanoseconds delay, std::function<void()> action);
  std::chrono::nanoseconds LineTime(std::size_t characters) const;
  void Tell(LineEvent event, const std::string& text);

  SimulatedRegister& device_;
  Scheduler& scheduler_;
  FaultScript script_;
  std::vector<std::size_t> occurrences_;  ///< Of each fault's prefix so far.
  EcrLinkEvents* events_ = nullptr;
  Observer observer_;
  std::map<LinkProperty, int> properties_;
  std::deque<std::string> settings_;
  std::deque<std::string> sent_;
  std::size_t sentCount_ = 0;
  std::string message_;
  std::string received_;
  bool open_ = false;
  int absentReads_ = 0;
  int failingOpens_ = 0;
  std::shared_ptr<bool> connection_;  ///< A token of what is on its way; replaced when the port is closed.
  std::shared_ptr<bool> alive_;       ///< A token of the link itself.
};

}  // namespace orvenza
