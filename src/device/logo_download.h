#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/logs.h"
#include "device/device_link.h"
#include "device/error_recovery.h"
#include "ui/operator_message.h"

namespace orvenza {

/// Sends a logo bitmap, already checked, to the register: one command a row, the picture's top row first.
class LogoDownload {
 public:
  LogoDownload(DeviceLink& link, ErrorRecovery& recovery, const FileReader& files, Logs& logs,
               OperatorMessages& messages)
      : link_(link), recovery_(recovery), files_(files), logs_(logs), messages_(messages) {}

  /// Sends the bitmap `path` as logo `number`, two digits as a rule; `commandLine` is the ticket line that
  /// asks for it. Returns whether the download ran to its end; otherwise the operator has been told.
  /// `givenUp` is called when the operator gives it up, before anything else is waited for.
  bool Download(const std::string& number, const std::string& path, const std::string& commandLine,
                const std::function<void()>& givenUp);

 private:
  bool SendRows(const std::string& number, const std::vector<std::string>& rows,
                const std::string& commandLine, const std::function<void()>& givenUp);

  DeviceLink& link_;
  ErrorRecovery& recovery_;
  const FileReader& files_;
  Logs& logs_;
  OperatorMessages& messages_;
};

/// The rows of the bitmap `path`, top row first, each as 112 upper-case hexadecimal digits. Throws
/// SystemError when the file cannot be read or holds less than its headers promise.
std::vector<std::string> ReadLogoRows(const FileReader& files, const std::string& path);

}  // namespace orvenza
