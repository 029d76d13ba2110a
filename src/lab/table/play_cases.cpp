#include "lab/table/play_cases.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "core/own_texts.h"
#include "core/settings.h"
#include "lab/rehearsal/scenario_reader.h"
#include "lab/table/case_run.h"
#include "lab/table/ticket_outcome.h"
#include "lab/table/verdict.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

/// A longer run is endless: the longest series of timeouts takes minutes. With AskInDoubt another dialog
/// follows each series.
constexpr auto kForever = 30min;
constexpr auto kForeverAsking = 3h;
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

/// Whether the transcript has an event of this kind for each change to the disk.
bool IsChange(std::string_view kind) {
  constexpr std::array<std::string_view, 12> kKinds{"log",   "error",   "file",     "folder",
                                                    "taken", "split",   "written",  "copied",
                                                    "moved", "deleted", "archived", "aborted"};
  return std::find(kKinds.begin(), kKinds.end(), kind) != kKinds.end();
}

/// The number of the change to the disk that moves the ticket's file in a run without a fault.
std::size_t FilingOf(const TicketStep& step, const Scenario& scenario) {
  std::size_t count = 0;
  const CaseRun run(scenario, {}, 0);
  for (const RehearsalEvent& event : run.Outcome().events) {
    if (IsChange(event.kind)) count += event.times;
    if (event.kind == "archived") return count;
  }
  throw std::invalid_argument("the ticket of \"" + step.name + "\" is never archived");
}

Scenario ScenarioOf(const TicketStep& step, TableHour hour, WayOfWorking way) {
  Scenario scenario = ParseScenario(step.name, step.scenario);
  if (way == WayOfWorking::kAskInDoubt)
    scenario.settings.push_back({setting::kSafety, setting::kAskInDoubt, "1"});
  scenario.settings.push_back({setting::kHost, setting::kOutcomes, kOutcomes});
  scenario.start = StartAt(hour);
  scenario.device.speed = 0;
  scenario.untilPrinted = true;
  scenario.limit = way == WayOfWorking::kContract ? kForever : kForeverAsking;
  return scenario;
}

/// Whether nothing was sent for longer than any timeout for a reply before the run was stopped at `limit`.
bool WaitsForOneReply(const RehearsalOutcome& outcome, std::chrono::milliseconds limit) {
  return !outcome.sent.empty() && outcome.lastSent + kLongWait < limit;
}

/// The start that all faults of a step have in common.
struct Ground {
  Ground(const TicketStep& ofStep, TableHour hour, WayOfWorking ofWay)
      : step(ofStep),
        way(ofWay),
        scenario(ScenarioOf(step, hour, way)),
        expected(SlipsExpected(scenario)),
        moment(step.command.empty() ? 0ms : MomentOf(step, scenario)),
        filing(step.filing ? FilingOf(step, scenario) : 0) {}

  const TicketStep& step;
  WayOfWorking way;
  Scenario scenario;
  std::vector<Slip> expected;
  std::chrono::milliseconds moment;  ///< When the step's command is sent.
  std::size_t filing;                ///< Number of the change to the disk that moves the ticket's file.
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
    scenario_.powerCuts = fault.cuts;
    for (PowerCut& cut : scenario_.powerCuts) {
      if (ground.step.filing) cut.number += ground.filing - 1;
    }
    scenario_.transcript = false;
    const FaultScript script = ParseFaultScript(ground.step.name, FaultLines(ground.step, fault));
    scenario_.device.faults.insert(scenario_.device.faults.end(), script.faults.begin(), script.faults.end());
  }

  FaultCase Played() {
    Follow({});
    return {ground_.step, fault_, std::move(ends_), std::move(claims_)};
  }

 private:
  void Follow(const std::vector<CaseReply>& plan) {
    const CaseRun run(scenario_, plan, depth_);
    TicketEnd end = Judged(run);
    Add(std::move(end), ClaimOf("ticket.txt", run.Outcome()));
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

  /// Equal ends count once.
  void Add(TicketEnd end, Claim claim) {
    const auto known = std::find(ends_.begin(), ends_.end(), end);
    if (known != ends_.end()) {
      if (!IsTrue(claim, end.paper)) claims_[static_cast<std::size_t>(known - ends_.begin())] = claim;
      return;
    }
    ends_.push_back(std::move(end));
    claims_.push_back(claim);
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
    end.paper = Compare(outcome.paper, ground_.expected, kEarlierItem);
    end.file = FileEndOf(scenario_.events.back().content, outcome);
    end.log = ErrorLines(outcome);
    // In the contract this line comes from the outcomes, which only watch.
    if (ground_.way == WayOfWorking::kContract) std::erase(end.log, own_text::kNoEvidence);
    end.verdict = hangs          ? Verdict::kHang
                  : run.GaveUp() ? AskedOn(end, ground_.way)
                                 : VerdictOf(end, ground_.way);
    end.waits = hangs && WaitsForOneReply(outcome, scenario_.limit);
    if (ground_.way == WayOfWorking::kContract) end.reason = RuleFor(ground_.step, fault_, end);
    return end;
  }

  const Ground& ground_;
  const StepFault& fault_;
  std::size_t depth_;
  Scenario scenario_;
  std::vector<TicketEnd> ends_;
  std::vector<Claim> claims_;
};

}  // namespace

FaultCase PlayCase(const TicketStep& step, const StepFault& fault, std::size_t depth, TableHour hour,
                   WayOfWorking way) {
  return Exploration(Ground(step, hour, way), fault, depth).Played();
}

std::vector<FaultCase> PlayCases(const std::vector<TicketStep>& steps, TableExtent extent, TableHour hour,
                                 WayOfWorking way,
                                 const std::function<void(std::size_t, std::size_t)>& progress) {
  std::vector<std::vector<StepFault>> faults;
  std::size_t all = 0;
  for (const TicketStep& step : steps) {
    faults.push_back(StepFaults(step, extent));
    all += faults.back().size();
  }
  std::vector<FaultCase> played;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Ground ground(steps[i], hour, way);
    for (const StepFault& fault : faults[i]) {
      played.push_back(Exploration(ground, fault, kCaseDepth).Played());
      if (progress) progress(played.size(), all);
    }
  }
  return played;
}

}  // namespace orvenza
