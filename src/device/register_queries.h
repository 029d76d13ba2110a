#pragma once

#include <optional>
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

/// How a query meets a failure.
enum class Asking {
  kAttended,  ///< Shown to the operator, who may try again or give up.
  kQuiet,     ///< Nothing is shown, and the first failure ends the query.
};

/// What the program asks the register. Each query returns the register's reply; nothing when the operator
/// gave an attended one up, or a quiet one failed.
class RegisterQueries {
 public:
  RegisterQueries(DeviceLink& link, CashDialogues& cash, ErrorRecovery& recovery, LinkDialogs& dialogs,
                  Logs& logs, EventLoop& loop, PollTimer& timer);

  /// Whether the register answers.
  [[nodiscard]] std::optional<std::string> StatusQuery(Asking asking);

  /// Learns model and release; a failure leaves the model blank.
  [[nodiscard]] std::optional<std::string> IdentityQuery(Asking asking);

  /// The register's time of day: hours and minutes at characters 11 to 14 of the reply.
  [[nodiscard]] std::optional<std::string> ClockQuery(Asking asking);

  /// What the identity query has learned.
  [[nodiscard]] const RegisterIdentity& Identity() const { return identity_; }

 private:
  [[nodiscard]] std::optional<std::string> Query(const std::string& code, Asking asking);
  [[nodiscard]] std::optional<std::string> QuietlyQuery(const std::string& code);
  [[nodiscard]] std::optional<std::string> AttendedQuery(const std::string& code);
  [[nodiscard]] bool SettleFailure(const Reply& reply);
  [[nodiscard]] bool AskRetry(const std::string& text);
  void ReopenLink();
  void VoidOpenReceipt();
  void LearnIdentity(const std::string& reply);

  DeviceLink& link_;
  CashDialogues& cash_;
  ErrorRecovery& recovery_;
  LinkDialogs& dialogs_;
  Logs& logs_;
  EventLoop& loop_;
  PollTimer& timer_;
  RegisterIdentity identity_;
};

}  // namespace orvenza
