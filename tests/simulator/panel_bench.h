#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "simulator/item_command.h"
#include "simulator/simulated_panel.h"
#include "simulator/virtual_clock.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {

inline const std::string kBread = ItemCommand("1003", "PANE", 1000, 150);
inline constexpr const char* kPayment = "103601000000000";
inline constexpr const char* kVoid = "102800";
inline constexpr const char* kStatus = "321701";

/// A simulated register with its panel. Everything on the line and on the paper is recorded with its time.
class PanelBench {
 public:
  explicit PanelBench(const std::string& lines = "")
      : script(ParseFaultScript("prova.sim", "speed instant\n" + lines)),
        device(clock, paper, script.profile),
        link(device, clock, script),
        panel({device, link, clock, files}, script, "C:\\cassa") {
    paper.SetSink([this](const std::string& line) {
      Record("paper " + line);
      panel.Printed(line);
    });
    device.SetKeeper([this](const RegisterState&) { panel.Changed(); });
    link.SetObserver([this](LineEvent event, const std::string& text) {
      Record(std::to_string(static_cast<int>(event)) + " " + text);
    });
    link.SetPortOpen(true);
  }

  void Send(const std::string& command) {
    link.SetMessage(command);
    link.Send();
    clock.Advance(std::chrono::seconds(1));
  }

  std::string Reply(const std::string& command) {
    Send(command);
    return link.RxMessage();
  }

  std::vector<std::string> Roll() const {
    std::vector<std::string> lines;
    for (const RollLine& line : panel.Roll()) lines.push_back((line.voided ? "x " : "  ") + line.text);
    return lines;
  }

  void Record(const std::string& text) {
    events.push_back(std::to_string(clock.Uptime() / std::chrono::milliseconds(1)) + " " + text);
  }

  MemoryFiles memory;
  FaultyFiles files{memory};
  VirtualClock clock;
  PaperRoll paper;
  FaultScript script;
  SimulatedRegister device;
  SimulatedLink link;
  SimulatedPanel panel;
  std::vector<std::string> events;
};

}  // namespace orvenza::test
