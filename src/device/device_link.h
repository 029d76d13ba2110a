#pragma once

#include <functional>
#include <set>
#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/ecr_link.h"
#include "device/link_dialogs.h"
#include "device/reply.h"
#include "device/serial_settings.h"

namespace orvenza {

/// The link to the register: opening it, and exchanging a command for a reply. A failure of the control
/// itself goes to the error log and then counts as an absent register or a command without reply. If the
/// control refuses a property, it keeps its own value. Whether the port is open is read only from the
/// control, even after a failed step; only a control that cannot be created is not asked any further.
class DeviceLink : private EcrLinkEvents {
 public:
  /// Timeout for the reply to an ordinary command, in seconds.
  static constexpr double kReplyWait = 15.0;

  DeviceLink(EcrLink& control, const AppSettings& settings, Logs& logs, LinkDialogs& dialogs, EventLoop& loop,
             const Clock& clock);
  ~DeviceLink() override;
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

  /// Configures and opens the port, asking the operator until it opens. `endOfTextWait` in milliseconds.
  /// Throws ProgramEnd when the operator gives up.
  void OpenDeviceLink(int endOfTextWait);

  void ClosePort();

  /// Closes the port, waits 100 ms and opens the link again with the ordinary end-of-text timeout.
  void Reopen();

  /// The same with the long end-of-text timeout, for a long-running command.
  void ReopenForLongCommand();

  /// Closes the port for 1000 ms and opens it again unchanged.
  void Bounce();

  /// Checks once whether the register is present, without an alarm. Waiting events are delivered first.
  [[nodiscard]] bool Present();

  /// Checks up to three times whether the register is present, with an alarm to the operator after each
  /// failed check. True only if the first check succeeds: a register that appears after an alarm is found by
  /// the next call.
  [[nodiscard]] bool DeviceReady();

  /// The serial settings have changed: the link is reopened as soon as no command is in progress.
  void ReapplySettings() { reapply_ = true; }

  /// Reopens the link unchanged if requested. Call it only while no command is in progress.
  void ApplyChangedSettings();

  /// Waits without limit until the register is ready.
  void AwaitDevice();

  /// Sends a command once the register is ready, and waits for its reply.
  Reply Exchange(const std::string& command, double replyWait = kReplyWait);

  /// Exchange without waiting for the register to be ready. Call it right after a check or a wait, so that no
  /// event, such as a late reply, is left to be delivered.
  Reply Transmit(const std::string& command, double replyWait = kReplyWait);

  /// Transmit with the timeout for a long-running command.
  Reply TransmitLong(const std::string& command);

  /// A reply that arrived after the last exchange, returned only once; otherwise `reply`.
  [[nodiscard]] Reply LatestReply(const Reply& reply);

 private:
  friend class EndBeforeSending;

  void ReplyReceived() override;
  void LinkError1() override { Arrived("ERR-1"); }
  void LinkError3() override { Arrived("ERR-3"); }
  void LinkError2() override { Arrived("ERR-2"); }
  void Arrived(std::string reply);

  void Reopen(int endOfTextWait);
  [[nodiscard]] bool TryOpen();
  /// False when there is no control.
  [[nodiscard]] bool Reset();
  void SetProperties(const SerialSettings& serial);
  /// Whether the port then reads as open: only that counts, even if the control reported a failure.
  [[nodiscard]] bool OpenPort();
  void SetProperty(LinkProperty property, int value);
  void SetPort(bool open);
  [[nodiscard]] bool WaitReply(double replyWait, std::string_view code);
  [[nodiscard]] bool DropLateReply(std::string_view code);
  [[nodiscard]] Reply TakeReply();

  EcrLink& control_;
  const AppSettings& settings_;
  Logs& logs_;
  LinkDialogs& dialogs_;
  EventLoop& loop_;
  const Clock& clock_;
  int endOfTextWait_ = 0;
  bool reapply_ = false;
  std::string ReplyText;      ///< The last reply as delivered; empty if there is none or it has been taken.
  bool ReplyArrived = false;  ///< Set by the control's events, cleared before each transmission.
  std::string code_;          ///< The last command's code.
  bool waiting_ = false;      ///< A command is in progress.
  bool endBeforeSending_ = false;  ///< See EndBeforeSending.
  std::set<std::string, std::less<>>
      unanswered_;  ///< Codes of commands given up whose replies may still arrive.
};

/// During its lifetime DeviceLink::AwaitDevice throws ProgramEnd once the end of the program is requested,
/// even if the register is ready: no further command is sent.
class [[nodiscard]] EndBeforeSending {
 public:
  explicit EndBeforeSending(DeviceLink& link) : link_(link) { link_.endBeforeSending_ = true; }
  ~EndBeforeSending() { link_.endBeforeSending_ = false; }
  EndBeforeSending(const EndBeforeSending&) = delete;
  EndBeforeSending& operator=(const EndBeforeSending&) = delete;

 private:
  DeviceLink& link_;
};

}  // namespace orvenza
