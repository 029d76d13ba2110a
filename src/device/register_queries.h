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

/// How a query handles a failure.
enum class Asking {
  kAttended,  ///< It is shown to the operator, who may retry or give up.
  kQuiet,     ///< Nothing is shown, and the first failure ends the query.
};

/// The program's queries of the register. Each returns the register's reply; empty when the operator gave up
/// an attended one, or a quiet one failed.
class RegisterQueries {
 public:
  RegisterQueries(DeviceLink& link, CashDialogues& cash, ErrorRecovery& recovery, LinkDialogs& dialogs,
                  Logs& logs, EventLoop& loop, PollTimer& timer);

  /// Learns model and release; after a failure the model is blank.
  [[nodiscard]] std::optional<std::string> StatusQuery(Asking asking);

  /// Learns model and release; after a failure the model is blank.
  [[nodiscard]] std::optional<std::string> IdentityQuery(Asking asking);

  /// The register's time of day: hours and minutes at characters 11 to 14 of the reply.
  [[nodiscard]] std::optional<std::string> ClockQuery(Asking asking);

  /// The result of the identity query.
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
