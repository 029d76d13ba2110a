#pragma once

#include <chrono>
#include <cstddef>
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

/// The events that an observer of the line receives.
enum class LineEvent {
  kSent,       ///< The program transmits; the text is the command.
  kReceived,   ///< A reply arrives; the text is the reply.
  kLinkError,  ///< The text is the error's number.
  kPort,       ///< The text is "open", "not open" (the opening failed) or "closed".
  kAbsent,     ///< The program found the register absent; no text.
};

/// The link control of a simulated register, with the faults of a script. Events come through the scheduler
/// only, never from inside a call.
///
/// A command is executed once its characters have been transmitted (10 bits each), and its reply arrives
/// after its own transmission time. Closing the port drops everything in transit. A command sent while the
/// port is closed is lost. The port does not open at a speed of zero bits per second or less. The control's
/// timeouts and retries are accepted without effect: silence causes no event at all.
class SimulatedLink : public EcrLink {
 public:
  /// Only the latest commands and settings are kept, so that days of running do not fill the memory.
  static constexpr std::size_t kKept = 10000;

  /// `device` and `scheduler` must outlive the link; actions still scheduled when the link is destroyed do
  /// nothing. Timed faults count from here.
  SimulatedLink(SimulatedRegister& device, Scheduler& scheduler, FaultScript script = {});
  SimulatedLink(const SimulatedLink&) = delete;
  SimulatedLink& operator=(const SimulatedLink&) = delete;

  using Observer = std::function<void(LineEvent, const std::string& text)>;
  void SetObserver(Observer observer) { observer_ = std::move(observer); }

  /// Called after a fault without a command has struck, and after one has met the command that it awaited;
  /// null: nobody.
  void SetFaultObserver(std::function<void()> observer) { faultObserver_ = std::move(observer); }

  /// Carries out a fault without a prefix, as if its time had come.
  void Strike(const Fault& fault);

  /// The fault that awaits the next command, or strikes every command; empty: none.
  const std::optional<Fault>& Awaiting() const { return awaiting_; }
  bool PowerOn() const { return powerOn_; }
  bool CableIn() const { return cableIn_; }

  /// The commands sent, oldest first.
  const std::deque<std::string>& Sent() const { return sent_; }
  /// Number of commands sent, including dropped ones.
  std::size_t SentCount() const { return sentCount_; }

  /// The properties set on the control, in order: "Reset 1", "PortNumber 1", "BaudRate 19200", ... "PortOpen
  /// 1".
  const std::deque<std::string>& Settings() const { return settings_; }
  /// The last value of a property; empty if it was never set.
  std::optional<int> Property(LinkProperty property) const;

  void SetEvents(EcrLinkEvents* events) override { events_ = events; }
  std::string RxMessage() override { return received_; }
  void SetMessage(const std::string& text) override { message_ = text; }
  void Send() override;
  /// False while the port is closed, the power off or the cable out.
  bool DevicePresent() override;
  bool PortOpen() override { return open_; }
  void SetPortOpen(bool open) override;
  void SetReset(bool reset) override;
  void SetProperty(LinkProperty property, int value) override;

 private:
  /// The effect of the script on one command.
  struct Disturbance {
    std::optional<Fault> fault;  ///< The fault of the exchange itself.
    std::optional<Paper> paperOut;
  };

  Disturbance Disturb(const std::string& command);
  /// Carries out a fault of the register, its paper or the port. False for a fault of the exchange.
  bool StrikeRegister(const Fault& fault);
  /// Switches the power or the cable, which loses everything in transit.
  void Switch(bool& connected, bool on);
  std::optional<Fault> TakeAwaiting();
  void Transmitted(const std::string& command, const Disturbance& disturbance);
  /// Sends `reply` to `command` after the transmission time and `late`.
  void Answer(const std::string& command, const std::string& reply, std::chrono::nanoseconds late = {});
  void Deliver(const std::string& reply);
  void RaiseLinkError(int number);
  /// Runs `action` after `delay`, unless the object behind `token` is gone by then.
  void At(const std::weak_ptr<bool>& token, std::chrono::nanoseconds delay, std::function<void()> action);
  std::chrono::nanoseconds LineTime(std::size_t characters) const;
  void Tell(LineEvent event, const std::string& text);

  SimulatedRegister& device_;
  Scheduler& scheduler_;
  FaultScript script_;
  std::vector<std::size_t> occurrences_;  ///< Per fault: how often its prefix has occurred.
  EcrLinkEvents* events_ = nullptr;
  Observer observer_;
  std::function<void()> faultObserver_;
  std::map<LinkProperty, int> properties_;
  std::deque<std::string> settings_;
  std::deque<std::string> sent_;
  std::size_t sentCount_ = 0;
  std::string message_;
  std::string received_;
  bool open_ = false;
  int absentReads_ = 0;
  int failingOpens_ = 0;
  std::optional<Fault> awaiting_;
  bool powerOn_ = true;
  bool cableIn_ = true;
  std::shared_ptr<bool> connection_;  ///< A token of everything in transit; replaced to drop it.
  std::shared_ptr<bool> alive_;       ///< A token of the link itself.
};

}  // namespace orvenza
