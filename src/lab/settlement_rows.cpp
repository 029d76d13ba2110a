#include "lab/settlement_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvenza {
namespace {

template <typename T>
bool Contains(const std::vector<T>& list, const T& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

SettlementOutcome OutcomeOf(const SettlementEnd& end) {
  SettlementOutcome outcome{end.verdict, end.paper, end.file, end.reason};
  if (end.verdict == Verdict::kAsksOn) {
    outcome.paper.voided = std::min(outcome.paper.voided, 1);
    outcome.paper.other = std::min(outcome.paper.other, 2);
  }
  return outcome;
}

/// Whether it can matter to a ticket. After the others the connector only goes on as before.
bool Matters(Answer answer) {
  return answer != Answer::kTryPort && answer != Answer::kLeavePort && answer != Answer::kStay;
}

void AddLog(SettlementWays& ways, const std::vector<std::string>& log) {
  if (ways.answers.empty()) {
    ways.logged = log;
    return;
  }
  const auto missing = [&](const std::string& line) { return !Contains(log, line); };
  std::copy_if(ways.logged.begin(), ways.logged.end(), std::back_inserter(ways.sometimes), missing);
  std::erase_if(ways.logged, missing);
  for (const std::string& line : log) {
    if (!Contains(ways.logged, line) && !Contains(ways.sometimes, line)) ways.sometimes.push_back(line);
  }
}

std::vector<SettlementRow> RowsOf(const std::vector<const Settlement*>& settlements) {
  std::vector<SettlementRow> rows;
  for (const Settlement* settlement : settlements) {
    SettlementOutcomes outcomes = OutcomesOf(*settlement);
    auto row = std::find_if(rows.begin(), rows.end(),
                            [&](const SettlementRow& r) { return r.outcomes == outcomes; });
    if (row == rows.end()) row = rows.insert(row, {{}, {}, std::move(outcomes)});
    const SettlementFault& fault = settlement->fault;
    (fault.eachTime ? row->eachTime : row->once).push_back(fault.name);
  }
  return rows;
}

}  // namespace

SettlementOutcomes OutcomesOf(const Settlement& settlement) {
  SettlementOutcomes outcomes;
  for (const SettlementEnd& end : settlement.ends) {
    SettlementWays& ways = outcomes[OutcomeOf(end)];
    AddLog(ways, end.log);
    std::vector<Answer> answers;
    std::copy_if(end.answers.begin(), end.answers.end(), std::back_inserter(answers), Matters);
    if (!Contains(ways.answers, answers)) ways.answers.push_back(std::move(answers));
  }
  for (auto& [outcome, ways] : outcomes) {
    std::sort(ways.answers.begin(), ways.answers.end());
    std::sort(ways.logged.begin(), ways.logged.end());
    std::sort(ways.sometimes.begin(), ways.sometimes.end());
  }
  return outcomes;
}

std::vector<SettlementSection> SectionsOf(const std::vector<Settlement>& settlements) {
  std::vector<std::pair<std::string, std::vector<const Settlement*>>> steps;
  for (const Settlement& settlement : settlements) {
    if (steps.empty() || steps.back().first != settlement.step.name) {
      steps.push_back({settlement.step.name, {}});
    }
    steps.back().second.push_back(&settlement);
  }
  std::vector<SettlementSection> sections;
  for (const auto& [name, ofStep] : steps) {
    std::vector<SettlementRow> rows = RowsOf(ofStep);
    auto section = std::find_if(sections.begin(), sections.end(),
                                [&](const SettlementSection& s) { return s.rows == rows; });
    if (section == sections.end()) section = sections.insert(section, {{}, std::move(rows)});
    section->steps.push_back(name);
  }
  return sections;
}

}  // namespace orvenza
