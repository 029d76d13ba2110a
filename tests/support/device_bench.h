#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <vector>

#include "core/logs.h"
#include "core/poll_timer.h"
#include "device/cash_dialogues.h"
#include "device/clock_correction.h"
#include "device/device_link.h"
#include "device/error_recovery.h"
#include "device/link_dialogs.h"
#include "device/register_queries.h"
#include "platform/ini_profile_file.h"
#include "simulator/scripted_operator.h"
#include "support/memory_files.h"
#include "support/scripted_link.h"
#include "support/test_clock.h"

namespace orvenza::test {

using Lines = std::vector<std::string>;

/// Everything that communicates with the register, on a scripted control. It is nine o'clock on 16 November
/// 2026, the settings are the defaults, and the port is open.
class DeviceBench : public ::testing::Test {
 protected:
  DeviceBench() {
    settings.LogPath = "C:\\shop\\Log.txt";
    settings.ErrPath = "C:\\shop\\Err.txt";
    settings.ComPortNumber = 1;
    settings.ComSettings = "19200,O,7,1";
    settings.FrameRetry = 3;
    settings.TimeWaitForAck = 10001;
    settings.TimeWaitForEtx = 10002;
    settings.TxMessageRetry = 5;
    settings.TimeShift = 60;
    settings.Ident = 'V';
    control.open = true;
    texts.LoadEcrErrorTable();
  }

  /// The lines of the error log and of the activity log, without their stamps.
  Lines Errors() const { return Journal("C:\\shop\\Err.txt"); }
  Lines Activity() const { return Journal("C:\\shop\\Log.txt"); }

  const Lines& Sent() const { return control.sent; }

  /// The operator's next answers, given without delay.
  template <typename... Texts>
  void Answer(const Texts&... answers) {
    (person.Answer(answers), ...);
  }

  /// Every dialog so far with its answer: message "caption" "text" [buttons] <- answer.
  Lines Shown() const {
    Lines shown;
    for (const ShownDialog& dialog : person.Shown()) {
      std::ostringstream line;
      line << dialog;
      shown.push_back(line.str());
    }
    return shown;
  }

  /// A dialog by index, from 0. The test fails if there is no such dialog.
  const ShownDialog& Dialog(std::size_t number) const { return person.Shown().at(number); }

  static std::string Last(const Lines& lines) { return lines.empty() ? "" : lines.back(); }

  /// Milliseconds since the start of the test.
  double Elapsed() const { return std::chrono::duration<double, std::milli>(clock.Uptime()).count(); }

  /// Ends the program after `delay`.
  void EndAfter(std::chrono::milliseconds delay) {
    clock.After(delay, [this] { loop.RequestEnd({.unload = true}); });
  }

  TestClock clock{Start()};
  MemoryFiles files;
  AppSettings settings;
  Logs logs{files, clock, settings, "C:\\shop"};
  EventLoop loop{clock, clock};
  ScriptedOperator person{loop};
  OperatorMessages messages{person, "Orvenza"};
  IniProfileFile profile{files};
  PortDialog portDialog{person, settings, profile, {"C:\\shop", "Orvenza"}};
  ScriptedLink control{clock};
  FaultyLink faulty{control};
  LinkDialogs dialogs{messages, portDialog, logs};
  DeviceLink link{faulty, settings, logs, dialogs, loop, clock};
  ClockCorrection correction{clock, settings, logs};
  CashDialogues cash{link, settings, logs, messages, dialogs, loop, correction};
  ErrorTexts texts{profile, "C:\\shop\\ErrDesc.ini"};
  ErrorRecovery recovery{texts, settings, cash, person, logs, "Orvenza"};
  PollTimer timer{clock};
  RegisterQueries queries{link, cash, recovery, dialogs, logs, loop, timer};

 private:
  static LocalTime Start() { return {2026, 11, 16, 9, 0, 0}; }

  Lines Journal(const std::string& path) const {
    Lines lines;
    const auto found = files.content.find(path);
    std::istringstream text(found == files.content.end() ? "" : found->second);
    for (std::string line; std::getline(text, line);) {
      lines.push_back(line.substr(std::string("dd/mm/yyyy hh:mm:ss - ").size()));
      EXPECT_EQ(lines.back().back(), '\r');
      lines.back().pop_back();
    }
    return lines;
  }
};

/// Dialogs in the form of Shown.
inline std::string AbsentAlarm(const std::string& answer = "Ok") {
  return "message \"Orvenza - Attenzione, Errori di Comunicazione !\" "
         "\"\\r\\nDispositivo Spento o Non Collegato !\" [Ok] <- " +
         answer;
}
inline std::string RetryQuestion(const std::string& text, const std::string& answer) {
  return "message \"Orvenza - Attenzione, Errori di Comunicazione !\" \"\\r\\n" + text +
         "\" [Riprova|Annulla|Configura] <- " + answer;
}
inline std::string EndQuestion(const std::string& answer) {
  return "message \"Orvenza - Richiesta di Fine Collegamento\" \"Chiudendo l'applicazione non sara' più "
         "possibile "
         "stampare gli scontrini\\r\\nSei sicuro ?\" [Sì|No] <- " +
         answer;
}

}  // namespace orvenza::test
