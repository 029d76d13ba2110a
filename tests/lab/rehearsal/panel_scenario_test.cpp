// A scenario that was copied from the panel of the simulated register: a rehearsal of it takes the same
// course.

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "lab/rehearsal/rehearsal.h"
#include "lab/rehearsal/scenario_reader.h"
#include "simulator/simulated_panel.h"
#include "support/shop.h"

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

const Lines kTicket{"1;PANE;1,000;150;1;;;1;;", "1;LATTE;2,000;129;1;;;1;;", "2;1;500;"};

/// The operator tries again until it works, and has receipts printed again.
ScriptedOperator::PlannedAnswer Judge(const ShownDialog& dialog) {
  if (dialog.options.size() > 1) return {dialog.options[1], 2s};
  return {dialog.buttons.front(), 2s};
}

/// A line so slow that something can be switched in the middle of a command.
constexpr const char* kScript = "speed instant\nspeed 1200\n";

/// A shop with a panel, whose host drops two tickets.
struct PanelShop : Shop {
  PanelShop()
      : Shop("speed 1200\n"),
        panel({device, link, clock, files}, ParseFaultScript("prova.sim", kScript), "C:\\shop") {
    paper.SetSink([this](const std::string& line) {
      printed.push_back(line);
      panel.Printed(line);
    });
    person.SetJudgement(Judge);
    Drop("0001.txt", kTicket);
    After(30s, [this] { Drop("0002.txt", kTicket); });
  }

  SimulatedPanel panel;
  Lines printed;
};

/// Every command with the time when it was sent.
Lines Course(const Lines& sent, const std::vector<std::int64_t>& times) {
  Lines course;
  for (std::size_t i = 0; i < sent.size(); ++i) course.push_back(std::to_string(times.at(i)) + " " + sent[i]);
  return course;
}

Lines CourseOf(const PanelShop& shop) { return Course(shop.Sent(), shop.SentAt("")); }

Lines CourseOf(const RehearsalOutcome& outcome) {
  std::vector<std::int64_t> times;
  for (const RehearsalEvent& event : outcome.events) {
    if (event.kind == "sent") times.push_back(event.at.count());
  }
  return Course(outcome.sent, times);
}

Lines UsualCourse() {
  PanelShop shop;
  shop.Run(60s);
  return CourseOf(shop);
}

/// Switches at 1.2 and 20 seconds of a shop's day, and rehearses the scenario that the panel copies.
void ExpectTheSameCourse(const std::function<void(SimulatedPanel&)>& on,
                         const std::function<void(SimulatedPanel&)>& off, const std::string& name) {
  PanelShop shop;
  shop.After(1200ms, [&] { on(shop.panel); });
  shop.After(20s, [&] { off(shop.panel); });
  shop.Run(60s);
  static const Lines usual = UsualCourse();
  EXPECT_NE(CourseOf(shop), usual) << name;

  std::string text = shop.panel.Scenario();
  for (const char* ticket : {"ticket 0001.txt\n", "at 30s ticket 0002.txt\n"}) {
    text += ticket;
    for (const std::string& line : kTicket) text += "| " + line + "\n";
  }
  Scenario scenario = ParseScenario("panel.scenario", text);
  scenario.judgement = Judge;
  const RehearsalOutcome outcome = Rehearse(scenario);
  EXPECT_EQ(outcome.problems, Lines{}) << name;
  EXPECT_EQ(CourseOf(outcome), CourseOf(shop)) << name;
  EXPECT_EQ(outcome.paper, shop.printed) << name;
}

TEST(PanelScenario, PlaysEverySwitch) {
  const auto name = [](std::size_t number) { return "switch " + std::to_string(number); };
  for (std::size_t number = 0; number < 5; ++number) {
    ExpectTheSameCourse([&](SimulatedPanel& panel) { panel.Turn(number, false); },
                        [&](SimulatedPanel& panel) { panel.Turn(number, true); }, name(number));
  }
}

TEST(PanelScenario, PlaysFaultsForTheNextCommandAndForAll) {
  for (const std::size_t number : {0u, 1u, 2u, 3u, 6u, 14u, 29u}) {
    for (const bool once : {true, false}) {
      ExpectTheSameCourse(
          [&](SimulatedPanel& panel) {
            panel.SetFault(ChosenFault{number, once});
          },
          [](SimulatedPanel& panel) { panel.SetFault(std::nullopt); },
          "fault " + std::to_string(number) + (once ? " once" : " always"));
    }
  }
}

TEST(PanelScenario, PlaysAsItIsCopied) {
  PanelShop shop;
  shop.After(5s, [&] { shop.panel.SetFault(ChosenFault{0, true}); });
  shop.Run(10s);
  EXPECT_EQ(Rehearse(ParseScenario("panel.scenario", shop.panel.Scenario())).problems, Lines{});
}

}  // namespace
}  // namespace orvenza::test
