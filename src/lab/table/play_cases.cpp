#include "lab/table/play_cases.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "lab/rehearsal/scenario_reader.h"
#include "lab/table/case_run.h"
#include "lab/table/verdict.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

const std::string kTickets = std::string(kRehearsalFolder) + "\\data\\";
/// A longer run is endless: the longest series of timeouts takes minutes.
constexpr auto kForever = 30min;
/// Longer than any timeout for a reply.
constexpr auto kLongWait = 5min;

/// The fault script's line for each effect.
std::string FaultLines(const TicketStep& step, const StepFault& fault) {
  std::string lines;
  for (const std::string& effect : fault.effects) {
    lines += "on " + step.command + " #" + std::to_string(step.occurrence) + (fault.eachTime ? " x* " : " ") +
             effect + "\n";
  }
  return lines;
}

/// When the step's command is first sent in a run without the fault.
std::chrono::milliseconds MomentOf(const TicketStep& step, const Scenario& scenario) {
  std::size_t count = 0;
  const CaseRun run(scenario, {}, 0);
  for (const RehearsalEvent& event : run.Outcome().events) {
    if (event.kind == "sent" && event.text.starts_with(step.command) && ++count == step.occurrence) {
      return event.at;
    }
  }
  throw std::invalid_argument("the scenario of \"" + step.name + "\" never sends " + step.command + " #" +
                              std::to_string(step.occurrence));
}

Scenario ScenarioOf(const TicketStep& step, TableHour hour) {
  Scenario scenario = ParseScenario(step.name, step.scenario);
  scenario.start = StartAt(hour);
  scenario.device.speed = 0;
  scenario.untilPrinted = true;
  scenario.limit = kForever;
  return scenario;
}

/// The slips of the ticket alone, with a register without faults.
std::vector<Slip> SlipsExpected(const Scenario& scenario) {
  Scenario quiet = scenario;
  quiet.device.faults.clear();
  std::erase_if(quiet.events, [](const ScenarioEvent& event) { return event.path.starts_with(kTickets); });
  quiet.events.push_back(scenario.events.back());
  return SlipsOn(CaseRun(quiet, {}, 0).Outcome().paper);
}

FileEnd EndOf(const std::string& content, const RehearsalOutcome& outcome) {
  for (const auto& [path, text] : outcome.files) {
    if (text != content) continue;
    if (path.starts_with(kTickets + "abort\\")) return FileEnd::kAbort;
    return path.starts_with(kTickets) ? FileEnd::kWaiting : FileEnd::kHistoric;
  }
  return FileEnd::kGone;
}

/// Whether nothing was sent for longer than any timeout for a reply.
bool WaitsForOneReply(const RehearsalOutcome& outcome) {
  return !outcome.sent.empty() && outcome.lastSent + kLongWait < kForever;
}

/// The start that all faults of a step have in common.
struct Ground {
  Ground(const TicketStep& ofStep, TableHour hour)
      : step(ofStep),
        scenario(ScenarioOf(step, hour)),
        expected(SlipsExpected(scenario)),
        moment(step.command.empty() ? 0ms : MomentOf(step, scenario)) {}

  const TicketStep& step;
  Scenario scenario;
  std::vector<Slip> expected;
  std::chrono::milliseconds moment;  ///< When the step's command is sent.
};

/// Follows one fault of one step through all answers.
class Exploration {
 public:
  Exploration(const Ground& ground, const StepFault& fault, std::size_t depth)
      : ground_(ground), fault_(fault), depth_(depth), scenario_(ground.scenario) {
    if (fault.meanwhile) {
      ScenarioEvent event;
      event.kind = *fault.meanwhile;
      event.at = ground.moment + fault.delay;
      scenario_.events.insert(scenario_.events.begin(), event);
    }
    scenario_.transcript = false;
    const FaultScript script = ParseFaultScript(ground.step.name, FaultLines(ground.step, fault));
    scenario_.device.faults.insert(scenario_.device.faults.end(), script.faults.begin(), script.faults.end());
  }

  std::vector<TicketEnd> Ends() {
    Follow({});
    return std::move(ends_);
  }

 private:
  void Follow(const std::vector<CaseReply>& plan) {
    const CaseRun run(scenario_, plan, depth_);
    TicketEnd end = Judged(run);
    if (std::find(ends_.begin(), ends_.end(), end) == ends_.end()) ends_.push_back(std::move(end));
    std::vector<CaseReply> before = plan;
    for (std::size_t i = plan.size(); i < run.Dialogs().size(); ++i) {
      for (const CaseReply& other : run.Dialogs()[i].others) {
        before.push_back(other);
        Follow(before);
        before.pop_back();
      }
      before.push_back(run.Dialogs()[i].reply);
    }
  }

  TicketEnd Judged(const CaseRun& run) const {
    const RehearsalOutcome& outcome = run.Outcome();
    const bool hangs = !outcome.ended && !run.GaveUp();
    if (hangs && !outcome.problems.front().starts_with("the connector has not ended")) {
      throw std::logic_error(ground_.step.name + ", " + fault_.name + ": " + outcome.problems.front());
    }
    TicketEnd end;
    for (const AskedDialog& asked : run.Dialogs()) {
      if (asked.reply.meaning) end.answers.push_back(*asked.reply.meaning);
    }
    end.paper = Compare(outcome.paper, ground_.expected, "ALTRO");
    end.file = EndOf(scenario_.events.back().content, outcome);
    end.log = ErrorLines(outcome);
    end.verdict = hangs ? Verdict::kHang : run.GaveUp() ? Verdict::kAsksOn : VerdictOf(end);
    end.waits = hangs && WaitsForOneReply(outcome);
    end.reason = RuleFor(ground_.step, fault_, end);
    return end;
  }

  const Ground& ground_;
  const StepFault& fault_;
  std::size_t depth_;
  Scenario scenario_;
  std::vector<TicketEnd> ends_;
};

}  // namespace

FaultCase PlayCase(const TicketStep& step, const StepFault& fault, std::size_t depth, TableHour hour) {
  return {step, fault, Exploration(Ground(step, hour), fault, depth).Ends()};
}

std::vector<FaultCase> PlayCases(const std::vector<TicketStep>& steps, TableExtent extent, TableHour hour,
                                 const std::function<void(std::size_t, std::size_t)>& progress) {
  std::vector<std::vector<StepFault>> faults;
  std::size_t all = 0;
  for (const TicketStep& step : steps) {
    faults.push_back(StepFaults(step, extent));
    all += faults.back().size();
  }
  std::vector<FaultCase> played;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Ground ground(steps[i], hour);
    for (const StepFault& fault : faults[i]) {
      played.push_back({steps[i], fault, Exploration(ground, fault, kCaseDepth).Ends()});
      if (progress) progress(played.size(), all);
    }
  }
  return played;
}

}  // namespace orvenza
