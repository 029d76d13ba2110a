#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>

#include "core/logs.h"
#include "device/logo_files.h"
#include "simulator/virtual_disk.h"
#include "tickets/translation.h"

namespace orvenza::test {

/// A translator with default settings and an unknown register. The lines use ";" as separator.
class TranslationTest : public ::testing::Test {
 protected:
  TranslationTest() { settings.ErrPath = "Err.txt"; }

  std::string Translate(std::string_view line) const {
    RecordFields fields;
    SplitRecord(line, ';', fields);
    return translator.TranslateRecord(fields);
  }

  /// The register's label and release as learned at start-up.
  void Register(std::string model, std::string release) {
    identity.DeviceModel = std::move(model);
    identity.DeviceRelease = std::move(release);
    identity.DeviceReleaseNumber = ReleaseNumber(identity.DeviceRelease);
  }

  std::string ErrorLog() const { return disk.Content("Err.txt").value_or(""); }

  RegisterIdentity identity;
  AppSettings settings;
  LogoFiles files;

 private:
  struct StoppedClock : Clock {
    LocalTime Now() const override { return {}; }
    double SecondsSinceMidnight() const override { return 0; }
    std::chrono::nanoseconds Uptime() const override { return {}; }
    void SetTimeOfDay(int, int, int) override {}
    std::string Stamp(const LocalTime&) const override { return "now"; }
  };
  StoppedClock clock;
  VirtualDisk disk{clock};
  Logs logs{disk.FileSeam(), clock, settings, "C:\\shop"};

 protected:
  RecordTranslator translator{identity, settings, files, logs};
};

inline std::string Blanks(std::size_t count) { return std::string(count, ' '); }

}  // namespace orvenza::test
