#include "lab/settlement.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "lab/settlement_run.h"
#include "lab/settlement_verdict.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

const std::string kTickets = std::string(kRehearsalFolder) + "\\data\\";
/// A run that takes longer goes on for ever: the longest series of waits takes minutes.
constexpr auto kForever = 30min;
/// No wait for a reply takes as long.
constexpr auto kLongWait = 5min;

/// The fault script's line for each effect.
std::string FaultLines(const SettlementStep& step, const SettlementFault& fault) {
  std::string lines;
  for (const std::string& effect : fault.effects) {
    lines += "on " + step.command + " #" + std::to_string(step.occurrence) + (fault.eachTime ? " x* " : " ") +
             effect + "\n";
  }
  return lines;
}

/// When the step's command is first sent, in a run without the fault.
std::chrono::milliseconds MomentOf(const SettlementStep& step, const Scenario& scenario) {
  std::size_t count = 0;
  const SettlementRun run(scenario, {}, 0);
  for (const RehearsalEvent& event : run.Outcome().events) {
    if (event.kind == "sent" && event.text.starts_with(step.command) && ++count == step.occurrence) {
      return event.at;
    }
  }
  throw std::invalid_argument("the scenario of \"" + step.name + "\" never sends " + step.command + " #" +
                              std::to_string(step.occurrence));
}

Scenario ScenarioOf(const SettlementStep& step, SettlementHour hour) {
  Scenario scenario = ParseScenario(step.name, step.scenario);
  scenario.start = StartAt(hour);
  scenario.device.speed = 0;
  scenario.untilPrinted = true;
  scenario.limit = kForever;
  return scenario;
}

/// The slips of the ticket alone, in front of a register that fails in nothing.
std::vector<Slip> SlipsExpected(const Scenario& scenario) {
  Scenario quiet = scenario;
  quiet.device.faults.clear();
  std::erase_if(quiet.deeds, [](const Deed& deed) { return deed.path.starts_with(kTickets); });
  quiet.deeds.push_back(scenario.deeds.back());
  return SlipsOn(SettlementRun(quiet, {}, 0).Outcome().paper);
}

FileEnd EndOf(const std::string& content, const RehearsalOutcome& outcome) {
  for (const auto& [path, text] : outcome.files) {
    if (text != content) continue;
    if (path.starts_with(kTickets + "abort\\")) return FileEnd::kAbort;
    return path.starts_with(kTickets) ? FileEnd::kWaiting : FileEnd::kHistoric;
  }
  return FileEnd::kGone;
}

/// Whether nothing was sent for longer than any wait for a reply takes.
bool WaitsForOneReply(const RehearsalOutcome& outcome) {
  const auto last = std::find_if(outcome.events.rbegin(), outcome.events.rend(),
                                 [](const RehearsalEvent& event) { return event.kind == "sent"; });
  return last != outcome.events.rend() && last->at + kLongWait < kForever;
}

/// What all faults at a step begin with.
struct Ground {
  Ground(const SettlementStep& ofStep, SettlementHour hour)
      : step(ofStep),
        scenario(ScenarioOf(step, hour)),
        expected(SlipsExpected(scenario)),
        moment(step.command.empty() ? 0ms : MomentOf(step, scenario)) {}

  const SettlementStep& step;
  Scenario scenario;
  std::vector<Slip> expected;
  std::chrono::milliseconds moment;  ///< When the step's command is sent.
};

/// Follows one fault at one step through all answers.
class Exploration {
 public:
  Exploration(const Ground& ground, const SettlementFault& fault, std::size_t depth)
      : ground_(ground), fault_(fault), depth_(depth), scenario_(ground.scenario) {
    if (fault.meanwhile) {
      Deed deed;
      deed.kind = *fault.meanwhile;
      deed.at = ground.moment + fault.delay;
      scenario_.deeds.insert(scenario_.deeds.begin(), deed);
    }
    const FaultScript script = ParseFaultScript(ground.step.name, FaultLines(ground.step, fault));
    scenario_.device.faults.insert(scenario_.device.faults.end(), script.faults.begin(), script.faults.end());
  }

  std::vector<SettlementEnd> Ends() {
    Follow({});
    return std::move(ends_);
  }

 private:
  void Follow(const std::vector<SettlementReply>& plan) {
    const SettlementRun run(scenario_, plan, depth_);
    SettlementEnd end = Judged(run);
    if (std::find(ends_.begin(), ends_.end(), end) == ends_.end()) ends_.push_back(std::move(end));
    std::vector<SettlementReply> before = plan;
    for (std::size_t i = plan.size(); i < run.Dialogs().size(); ++i) {
      for (const SettlementReply& other : run.Dialogs()[i].others) {
        before.push_back(other);
        Follow(before);
        before.pop_back();
      }
      before.push_back(run.Dialogs()[i].reply);
    }
  }

  SettlementEnd Judged(const SettlementRun& run) const {
    const RehearsalOutcome& outcome = run.Outcome();
    const bool hangs = !outcome.ended && !run.GaveUp();
    if (hangs && !outcome.problems.front().starts_with("the connector has not ended")) {
      throw std::logic_error(ground_.step.name + ", " + fault_.name + ": " + outcome.problems.front());
    }
    SettlementEnd end;
    for (const AskedDialog& asked : run.Dialogs()) {
      if (asked.reply.meaning) end.answers.push_back(*asked.reply.meaning);
    }
    end.paper = Compare(outcome.paper, ground_.expected, "ALTRO");
    end.file = EndOf(scenario_.deeds.back().content, outcome);
    end.log = ErrorLines(outcome);
    end.verdict = hangs ? Verdict::kHang : run.GaveUp() ? Verdict::kAsksOn : VerdictOf(end);
    end.waits = hangs && WaitsForOneReply(outcome);
    end.reason = PrescribedBy(ground_.step, fault_, end);
    return end;
  }

  const Ground& ground_;
  const SettlementFault& fault_;
  std::size_t depth_;
  Scenario scenario_;
  std::vector<SettlementEnd> ends_;
};

}  // namespace

Settlement Settle(const SettlementStep& step, const SettlementFault& fault, std::size_t depth,
                  SettlementHour hour) {
  return {step, fault, Exploration(Ground(step, hour), fault, depth).Ends()};
}

std::vector<Settlement> SettleAll(const std::vector<SettlementStep>& steps, SettlementExtent extent,
                                  SettlementHour hour,
                                  const std::function<void(std::size_t, std::size_t)>& progress) {
  std::vector<std::vector<SettlementFault>> faults;
  std::size_t all = 0;
  for (const SettlementStep& step : steps) {
    faults.push_back(SettlementFaults(step, extent));
    all += faults.back().size();
  }
  std::vector<Settlement> settled;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Ground ground(steps[i], hour);
    for (const SettlementFault& fault : faults[i]) {
      settled.push_back({steps[i], fault, Exploration(ground, fault, kSettlementDepth).Ends()});
      if (progress) progress(settled.size(), all);
    }
  }
  return settled;
}

}  // namespace orvenza
