#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "core/logs.h"
#include "core/settings.h"
#include "lab/doctor/diagnosis.h"
#include "lab/shell/fake_machine.h"
#include "platform/ini_profile_file.h"
#include "simulator/virtual_clock.h"
#include "simulator/virtual_disk.h"

namespace orvenza::test {

/// An installation without problems in C:\Orvenza at nine o'clock on 16 November 2026.
class ShopBench : public ::testing::Test {
 protected:
  static constexpr LocalTime kYesterday{2026, 11, 15, 8, 0, 0};

  ShopBench() {
    AppSettings settings;
    Logs logs(disk.FileSeam(), clock, settings, kApp);
    SettingsFile file(profile, disk.FileSeam(), logs, {kApp, "Orvenza"});
    disk.MakeFolder("C:\\Orvenza");
    file.WriteDefaultIni();
    disk.Put(At("Orvenza.ini"), *disk.Content(At("Orvenza.ini")) + "[Safety]\r\nAskInDoubt=1\r\n");
    file.WriteDefaultErrDesc();
    for (const char* folder : {"data", "data\\inproces", "data\\abort", "storico"})
      disk.MakeFolder(At(folder));
  }

  static std::string At(const std::string& relative) { return std::string(kApp) + "\\" + relative; }

  /// Replaces a text of the settings file; with an empty `to`, removes the line that contains `from`.
  void Edit(const std::string& from, const std::string& to) {
    std::string ini = *disk.Content(At("Orvenza.ini"));
    const std::size_t at = ini.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    ini.replace(at, to.empty() ? ini.find('\n', at) + 1 - at : from.size(), to);
    disk.Put(At("Orvenza.ini"), ini);
  }

  LabSurroundings Lab() { return {disk.FileSeam(), disk.FolderSeam(), clock, clock, machine, console, kApp}; }

  Findings Find() {
    const LabSurroundings lab = Lab();
    return Diagnose(LookAt(lab, {kApp, "Orvenza"}));
  }

  /// The findings except kOk, one per line as "severity code: fact".
  std::string Said() { return Text(false); }
  /// The others.
  std::string InOrder() { return Text(true); }

  /// The remedy of the first finding with a code.
  std::string Remedy(const std::string& code) {
    for (const Finding& finding : Find()) {
      if (finding.code == code) return finding.remedy;
    }
    return "no such finding";
  }

  VirtualClock clock;
  VirtualDisk disk{clock};
  IniProfileFile profile{disk.FileSeam()};
  FakeMachine machine;
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  Console console{in, out, err};

 private:
  static constexpr const char* kApp = "C:\\Orvenza";

  std::string Text(bool inOrder) {
    const char* names[] = {"ok", "note", "warning", "error"};
    std::string text;
    for (const Finding& finding : Find()) {
      if ((finding.severity == Severity::kOk) != inOrder) continue;
      text += std::string(names[static_cast<int>(finding.severity)]) + " " + finding.code + ": " +
              finding.fact + "\n";
    }
    return text;
  }
};

}  // namespace orvenza::test
