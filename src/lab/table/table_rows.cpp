#include "lab/table/table_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvenza {
namespace {

template <typename T>
bool Contains(const std::vector<T>& list, const T& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

CaseOutcome OutcomeOf(const TicketEnd& end) {
  CaseOutcome outcome{end.verdict, end.paper, end.file, end.reason};
  if (end.verdict == Verdict::kAsksOn) {
    outcome.paper.voided = std::min(outcome.paper.voided, 1);
    outcome.paper.other = std::min(outcome.paper.other, 2);
  }
  return outcome;
}

/// Whether it can affect a ticket. After the other answers the connector just goes on.
bool Matters(Answer answer) {
  return answer != Answer::kTryPort && answer != Answer::kLeavePort && answer != Answer::kStay;
}

void AddLog(CaseWays& ways, const std::vector<std::string>& log) {
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

std::vector<TableRow> RowsOf(const std::vector<const FaultCase*>& cases) {
  std::vector<TableRow> rows;
  for (const FaultCase* faultCase : cases) {
    CaseOutcomes outcomes = OutcomesOf(*faultCase);
    auto row =
        std::find_if(rows.begin(), rows.end(), [&](const TableRow& r) { return r.outcomes == outcomes; });
    if (row == rows.end()) row = rows.insert(row, {{}, {}, std::move(outcomes)});
    const StepFault& fault = faultCase->fault;
    (fault.eachTime ? row->eachTime : row->once).push_back(fault.name);
  }
  return rows;
}

}  // namespace

CaseOutcomes OutcomesOf(const FaultCase& faultCase) {
  CaseOutcomes outcomes;
  for (const TicketEnd& end : faultCase.ends) {
    CaseWays& ways = outcomes[OutcomeOf(end)];
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

std::vector<TableSection> SectionsOf(const std::vector<FaultCase>& cases) {
  std::vector<std::pair<std::string, std::vector<const FaultCase*>>> steps;
  for (const FaultCase& faultCase : cases) {
    if (steps.empty() || steps.back().first != faultCase.step.name) {
      steps.push_back({faultCase.step.name, {}});
    }
    steps.back().second.push_back(&faultCase);
  }
  std::vector<TableSection> sections;
  for (const auto& [name, ofStep] : steps) {
    std::vector<TableRow> rows = RowsOf(ofStep);
    auto section =
        std::find_if(sections.begin(), sections.end(), [&](const TableSection& s) { return s.rows == rows; });
    if (section == sections.end()) section = sections.insert(section, {{}, std::move(rows)});
    section->steps.push_back(name);
  }
  return sections;
}

}  // namespace orvenza
