#include "lab/settlement.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "core/catalogue.h"
#include "core/text.h"
#include "lab/settlement_verdict.h"

namespace orvenza {
namespace {

using namespace std::chrono_literals;

constexpr const char* kClose = "close";
constexpr const char* kMenuExit = "menu Esci";
/// A run that takes longer goes on for ever: the longest series of waits takes minutes.
constexpr auto kForever = 30min;
/// Dialogs after which the operator gives up.
constexpr std::size_t kPatience = 30;
/// Dialogs from which the operator may end the program.
constexpr std::size_t kMenuDialogs = 6;

/// An answer as the scripted operator takes it, and what it means.
struct Reply {
  std::string text;
  std::optional<Answer> meaning;  ///< Nothing where the dialog leaves no choice.
};

/// What the operator can answer to a dialog, first the answer that goes forward. To close a message with one
/// button is the same as to press it, and to close the question whether to end is a no.
std::vector<Reply> RepliesTo(const ShownDialog& dialog) {
  const auto& buttons = dialog.buttons;
  if (!dialog.options.empty()) {
    return {{dialog.options[2], Answer::kGiveUp},
            {dialog.options[1], Answer::kReprint},
            {dialog.options[0], Answer::kPrinted},
            {kClose, Answer::kNoChoice}};
  }
  if (buttons.size() == 1) return {{buttons[0], {}}};
  if (buttons.size() == 3) {
    return {{buttons[0], Answer::kTryPort},
            {buttons[1], Answer::kLeavePort},
            {buttons[2], Answer::kTryPort},
            {kClose, Answer::kTryPort}};
  }
  if (dialog.caption.find(LoadMessage(152)) != std::string::npos) {
    return {{buttons[1], Answer::kStay}, {buttons[0], Answer::kEndProgram}};
  }
  return {{buttons[0], Answer::kCloseReceipt},
          {buttons[1], Answer::kLeaveReceipt},
          {kClose, Answer::kLeaveReceipt}};
}

/// One dialog of a run.
struct Asked {
  Reply reply;
  std::vector<Reply> others;  ///< That are to be tried too.
};

/// One run of the connector, answered by `plan` first and then in the way that goes forward.
class Run {
 public:
  Run(const Scenario& scenario, std::vector<Reply> plan, std::size_t depth)
      : scenario_(scenario), plan_(std::move(plan)), depth_(depth) {
    scenario_.judgement = [this](const ShownDialog& dialog) { return Decide(dialog); };
    outcome_ = Rehearse(scenario_);
    scenario_.judgement = nullptr;
  }

  const RehearsalOutcome& Outcome() const { return outcome_; }
  const std::vector<Asked>& Dialogs() const { return asked_; }
  bool GaveUp() const { return asked_.size() == kPatience && !outcome_.ended; }

 private:
  std::string Decide(const ShownDialog& dialog) {
    if (asked_.size() == kPatience) return {};
    std::vector<Reply> replies = RepliesTo(dialog);
    const bool leaving = !asked_.empty() && asked_.back().reply.text == kMenuExit;
    if (leaving) replies = {replies.back()};
    Asked asked{replies.front(), {}};
    if (asked_.size() < plan_.size()) {
      asked.reply = plan_[asked_.size()];
    } else if (choices_ < depth_) {
      asked.others.assign(replies.begin() + 1, replies.end());
      const bool mayLeave = !leaving && !left_ && asked_.size() < kMenuDialogs;
      if (mayLeave) asked.others.push_back({kMenuExit, {}});
    }
    if (replies.size() > 1) ++choices_;
    left_ = left_ || asked.reply.text == kMenuExit;
    asked_.push_back(std::move(asked));
    return asked_.back().reply.text;
  }

  Scenario scenario_;
  std::vector<Reply> plan_;
  std::size_t depth_;
  RehearsalOutcome outcome_;
  std::vector<Asked> asked_;
  std::size_t choices_ = 0;
  bool left_ = false;
};

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
  const Run run(scenario, {}, 0);
  for (const RehearsalEvent& event : run.Outcome().events) {
    if (event.kind == "sent" && event.text.starts_with(step.command) && ++count == step.occurrence) {
      return event.at;
    }
  }
  throw std::invalid_argument("the scenario of \"" + step.name + "\" never sends " + step.command + " #" +
                              std::to_string(step.occurrence));
}

Scenario ScenarioOf(const SettlementStep& step) {
  Scenario scenario = ParseScenario(step.name, step.scenario);
  scenario.device.speed = 0;
  scenario.untilPrinted = true;
  scenario.limit = kForever;
  return scenario;
}

/// The slips of the ticket alone, in front of a register that fails in nothing.
std::vector<Slip> SlipsExpected(const Scenario& scenario) {
  Scenario quiet = scenario;
  quiet.device.faults.clear();
  std::erase_if(quiet.deeds, [&](const Deed& deed) {
    return deed.path.find("\\data\\") != std::string::npos && &deed != &quiet.deeds.back();
  });
  return SlipsOn(Run(quiet, {}, 0).Outcome().paper);
}

FileEnd EndOf(const std::string& content, const RehearsalOutcome& outcome) {
  const std::string data = std::string(kRehearsalFolder) + "\\data\\";
  for (const auto& [path, text] : outcome.files) {
    if (text != content) continue;
    if (path.starts_with(data + "abort\\")) return FileEnd::kAbort;
    return path.starts_with(data) ? FileEnd::kWaiting : FileEnd::kHistoric;
  }
  return FileEnd::kGone;
}

/// What all faults at a step begin with.
struct Ground {
  explicit Ground(const SettlementStep& ofStep)
      : step(ofStep),
        scenario(ScenarioOf(step)),
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
  void Follow(const std::vector<Reply>& plan) {
    const Run run(scenario_, plan, depth_);
    SettlementEnd end = Judged(run);
    if (std::find(ends_.begin(), ends_.end(), end) == ends_.end()) ends_.push_back(std::move(end));
    std::vector<Reply> before = plan;
    for (std::size_t i = plan.size(); i < run.Dialogs().size(); ++i) {
      for (const Reply& other : run.Dialogs()[i].others) {
        before.push_back(other);
        Follow(before);
        before.pop_back();
      }
      before.push_back(run.Dialogs()[i].reply);
    }
  }

  SettlementEnd Judged(const Run& run) const {
    const RehearsalOutcome& outcome = run.Outcome();
    const bool hangs = !outcome.ended && !run.GaveUp();
    if (hangs && !outcome.problems.front().starts_with("the connector has not ended")) {
      throw std::logic_error(ground_.step.name + ", " + fault_.name + ": " + outcome.problems.front());
    }
    SettlementEnd end;
    for (const Asked& asked : run.Dialogs()) {
      if (asked.reply.meaning) end.answers.push_back(*asked.reply.meaning);
    }
    end.paper = Compare(outcome.paper, ground_.expected, "ALTRO");
    end.file = EndOf(scenario_.deeds.back().content, outcome);
    end.log = ErrorLines(outcome);
    end.verdict = hangs ? Verdict::kHang : run.GaveUp() ? Verdict::kAsksOn : VerdictOf(end);
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

Settlement Settle(const SettlementStep& step, const SettlementFault& fault, std::size_t depth) {
  return {step, fault, Exploration(Ground(step), fault, depth).Ends()};
}

std::vector<Settlement> SettleAll(const std::vector<SettlementStep>& steps, SettlementExtent extent,
                                  const std::function<void(std::size_t, std::size_t)>& progress) {
  std::vector<std::vector<SettlementFault>> faults;
  std::size_t all = 0;
  for (const SettlementStep& step : steps) {
    faults.push_back(SettlementFaults(step, extent));
    all += faults.back().size();
  }
  std::vector<Settlement> settled;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const Ground ground(steps[i]);
    for (const SettlementFault& fault : faults[i]) {
      settled.push_back({steps[i], fault, Exploration(ground, fault, kSettlementDepth).Ends()});
      if (progress) progress(settled.size(), all);
    }
  }
  return settled;
}

}  // namespace orvenza
