#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/logs.h"
#include "core/settings.h"
#include "platform/ini_profile_file.h"
#include "simulator/virtual_clock.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {

/// The settings file of a program in C:\shop at nine o'clock. Lines of the error log begin with kStamp.
class SettingsBench : public ::testing::Test {
 protected:
  static constexpr const char* kStamp = "16/11/2026 09:00:00 - ";

  std::string& Ini() { return memory.content["C:\\shop\\Orvenza.ini"]; }

  /// The settings read from a file with this content.
  const AppSettings& Read(const std::string& ini) {
    Ini() = ini;
    settings = {};
    file.ReadIni(settings);
    return settings;
  }

  /// The error log from before and after reading the settings, without stamps.
  std::string Errors() const {
    std::string errors;
    for (const char* path : {"C:\\shop\\error.txt", "C:\\shop\\Err.txt"}) {
      if (const auto found = memory.content.find(path); found != memory.content.end())
        errors += found->second;
    }
    const std::string stamp = kStamp;
    for (auto at = errors.find(stamp); at != std::string::npos; at = errors.find(stamp, at)) {
      errors.erase(at, stamp.size());
    }
    return errors;
  }

  VirtualClock clock;
  MemoryFiles memory;
  FaultyFiles files{memory};
  IniProfileFile profile{files};
  AppSettings settings;
  Logs logs{files, clock, settings, "C:\\shop"};
  SettingsFile file{profile, files, logs, {"C:\\shop", "Orvenza"}};
};

}  // namespace orvenza::test
