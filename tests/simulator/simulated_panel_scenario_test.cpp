#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "simulator/panel_bench.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;

TEST(SimulatedPanel, WritesAScenarioOfWhatWasSwitched) {
  PanelBench bench("# guasti\nmodel \"  TOVEST 8\"\n\n  on 1036 #2 lose-reply\npace 20\npaper carta.txt\n");
  bench.clock.Advance(1234ms);
  bench.panel.Turn(3, false);
  bench.clock.Advance(1s);
  bench.panel.Turn(3, true);
  bench.panel.SetFault(ChosenFault{2, true});
  bench.panel.SetFault(ChosenFault{7, false});
  bench.panel.SetFault(std::nullopt);
  // The pace of 20 stands for what the clock of the program shows.
  EXPECT_EQ(bench.panel.Scenario(),
            "# Dal registratore simulato. Aggiungere gli scontrini (at 2s ticket 0001.txt) e le risposte "
            "(answer Ok).\n"
            "start 16/11/2026 09:00:00\n"
            "register speed instant\n"
            "register model \"  TOVEST 8\"\n"
            "register on 1036 #2 lose-reply\n"
            "register after 24680 cable out\n"
            "register after 44680 cable in\n"
            "register after 44680 next late 5000\n"
            "register after 44680 every reply ERR01\n"
            "register after 44680 no fault\n"
            "at 45s quit\n");
}

TEST(SimulatedPanel, KeepsALineInAnotherEncodingAsAComment) {
  PanelBench bench("model \"CAFF\xC8 8901\"\non 1036 reply CAFFÈ\nafter 9 next reply \xC8");
  bench.panel.SetFault(ChosenFault{38, false});
  const std::string scenario = bench.panel.Scenario();
  EXPECT_NE(scenario.find("\n# register model \"CAFFÈ 8901\"\n"), std::string::npos) << scenario;
  EXPECT_NE(scenario.find("\nregister on 1036 reply CAFFÈ\n"), std::string::npos) << scenario;
  EXPECT_NE(scenario.find("\n# register after 0 every reply È\n"), std::string::npos) << scenario;
}

TEST(SimulatedPanel, SaysThatEarlyStepsAreMissing) {
  PanelBench bench;
  for (int i = 0; i < 10000; ++i) bench.panel.Turn(4, i % 2 == 1);
  EXPECT_EQ(bench.panel.Scenario().find("# Mancano"), std::string::npos);
  bench.panel.SetFault(ChosenFault{0, true});
  const std::string scenario = bench.panel.Scenario();
  EXPECT_NE(scenario.find("# Mancano i primi interventi: sono troppi.\n"), std::string::npos);
  EXPECT_EQ(std::count(scenario.begin(), scenario.end(), '\n'), 10000 + 5);
}

/// A receipt, a void, a closure and queries, while something is switched at 2 and 9 seconds.
void PlayADay(PanelBench& bench) {
  for (const std::string& command :
       {kBread, std::string(kStatus), kBread, std::string(kPayment), std::string("114900"), kBread,
        std::string(kVoid), std::string("300101"), std::string(kStatus), kBread, std::string(kPayment),
        std::string("114900"), std::string("300101")}) {
    bench.link.DevicePresent();
    bench.Send(command);
  }
  bench.clock.Advance(20s);
}

/// The register's part of a scenario, as a script.
std::string ScriptOf(const std::string& scenario) {
  constexpr std::string_view kRegister = "register ";
  std::istringstream lines(scenario);
  std::string script;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(kRegister)) script += line.substr(kRegister.size()) + "\n";
  }
  return script;
}

/// What is switched at the panel is the same as the line of the script that it notes.
void ExpectTheSameAsTheScript(const std::function<void(SimulatedPanel&)>& on,
                              const std::function<void(SimulatedPanel&)>& off, const std::string& name) {
  PanelBench usual;
  PlayADay(usual);
  PanelBench switched;
  // Scheduled first, as the link schedules its script.
  switched.clock.After(1500ms, [&] { on(switched.panel); });
  switched.clock.After(8500ms, [&] { off(switched.panel); });
  PlayADay(switched);
  PanelBench scripted(ScriptOf(switched.panel.Scenario()));
  PlayADay(scripted);
  EXPECT_NE(switched.events, usual.events) << name;
  EXPECT_EQ(scripted.events, switched.events) << name;
  EXPECT_EQ(scripted.Roll(), switched.Roll()) << name;
  EXPECT_EQ(scripted.panel.Counters(), switched.panel.Counters()) << name;
}

TEST(SimulatedPanel, EachSwitchIsALineOfTheScript) {
  for (std::size_t number = 0; number < 5; ++number) {
    ExpectTheSameAsTheScript([&](SimulatedPanel& panel) { panel.Turn(number, false); },
                             [&](SimulatedPanel& panel) { panel.Turn(number, true); },
                             "switch " + std::to_string(number));
  }
}

TEST(SimulatedPanel, EachFaultIsALineOfTheScript) {
  for (std::size_t number = 0; number < 38; ++number) {
    for (const bool once : {true, false}) {
      ExpectTheSameAsTheScript(
          [&](SimulatedPanel& panel) {
            panel.SetFault(ChosenFault{number, once});
          },
          [](SimulatedPanel& panel) { panel.SetFault(std::nullopt); },
          "fault " + std::to_string(number) + (once ? " once" : " always"));
    }
  }
}

}  // namespace
}  // namespace orvenza::test
