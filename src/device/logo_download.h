#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/logs.h"
#include "device/device_link.h"
#include "device/error_recovery.h"
#include "ui/operator_message.h"

namespace orvenza {

/// Sends a checked logo bitmap to the register: one command per row, top row first.
class LogoDownload {
 public:
  LogoDownload(DeviceLink& link, const AppSettings& settings, ErrorRecovery& recovery,
               const FileReader& files, Logs& logs, OperatorMessages& messages)
      : link_(link),
        settings_(settings),
        recovery_(recovery),
        files_(files),
        logs_(logs),
        messages_(messages) {}

  /// Sends the bitmap `path` as logo `number`, usually two digits; `commandLine` is the ticket line that
  /// requests it. Returns whether the download was completed; otherwise the operator has been informed.
  /// `givenUp` is called as soon as the operator gives it up, before any further wait.
  [[nodiscard]] bool Download(const std::string& number, const std::string& path,
                              const std::string& commandLine, const std::function<void()>& givenUp);

  /// Called with the command of each row that is not answered properly, and its reply. May be empty.
  std::function<void(const std::string& row, const Reply& reply)> OnTrouble;

 private:
  [[nodiscard]] bool SendRows(const std::string& number, const std::vector<std::string>& rows,
                              const std::string& commandLine, const std::function<void()>& givenUp);

  DeviceLink& link_;
  const AppSettings& settings_;
  ErrorRecovery& recovery_;
  const FileReader& files_;
  Logs& logs_;
  OperatorMessages& messages_;
};

/// The rows of the bitmap `path`, top row first, each as 112 upper-case hexadecimal digits. Throws
/// SystemError when the file cannot be read or is shorter than its headers say.
[[nodiscard]] std::vector<std::string> ReadLogoRows(const FileReader& files, const std::string& path);

}  // namespace orvenza
