#pragma once

#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/poll_timer.h"
#include "core/settings.h"
#include "device/cash_dialogues.h"
#include "device/device_link.h"
#include "device/error_recovery.h"
#include "device/register_identity.h"

namespace orvenza {

/// The register queries that run with the operator in the loop. Each is attended (empty argument: a failure
/// is shown with the choice to try again) or quiet (argument "*": nothing is shown, the first failure ends
/// it). Each returns a non-empty text on success, "-" when the operator gave up, and an empty text when a
/// quiet query failed.
class RegisterQueries {
 public:
  RegisterQueries(DeviceLink& link, CashDialogues& cash, ErrorRecovery& recovery, OperatorMessages& messages,
                  PortDialog& portDialog, const AppSettings& settings, Logs& logs, EventLoop& loop,
                  PollTimer& timer, RegisterIdentity& identity);

  /// Whether the register answers. The quiet form, where corrections of the PC clock are switched on, goes on
  /// to the clock query, whose reply is then in `ReplyText`.
  std::string StatusQuery(const std::string& argument);

  /// Learns model and release; a failure leaves the model blank.
  std::string IdentityQuery(const std::string& argument);

  /// The register's time of day, in `ReplyText`: hours and minutes at characters 11 to 14.
  std::string ClockQuery(const std::string& argument);

 private:
  std::string Query(const std::string& code, const std::string& argument);
  std::string AttendedQuery(const std::string& code);
  bool SettleReply(const std::string& code, std::string& data);
  bool AskRetry(const std::string& text);
  void ReopenLink();
  void VoidOpenReceipt();
  void LearnIdentity(const std::string& reply);

  DeviceLink& link_;
  CashDialogues& cash_;
  ErrorRecovery& recovery_;
  OperatorMessages& messages_;
  PortDialog& portDialog_;
  const AppSettings& settings_;
  Logs& logs_;
  EventLoop& loop_;
  PollTimer& timer_;
  RegisterIdentity& identity_;
};

}  // namespace orvenza
