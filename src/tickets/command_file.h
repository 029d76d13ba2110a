#pragma once

#include <string>

#include "core/event_loop.h"
#include "core/logs.h"
#include "core/settings.h"
#include "device/device_link.h"
#include "platform/files.h"

namespace orvenza {

/// Whether the first line of the host's existing command file asks the program to end: "QUIT", or empty.
/// Throws SystemError.
[[nodiscard]] bool AsksToQuit(const FileReader& files, const std::string& commandFile);

/// The command file, through which the host ends the program.
class CommandFile {
 public:
  CommandFile(Files& files, const AppSettings& settings, Logs& logs, EventLoop& loop, DeviceLink& link)
      : files_(files), settings_(settings), logs_(logs), loop_(loop), link_(link) {}

  /// If the file requests the end, closes the port, removes the file and throws ProgramEnd. Throws
  /// SystemError if it cannot be read.
  void QuitIfAsked();

  /// Called between two pieces of a large file of which nothing has been sent. Delivers events, and throws
  /// ProgramEnd once the end is requested, even by the host.
  void Breathe();

 private:
  Files& files_;
  const AppSettings& settings_;
  Logs& logs_;
  EventLoop& loop_;
  DeviceLink& link_;
  int pieces_ = 0;  // since the last check for the file
};

}  // namespace orvenza
