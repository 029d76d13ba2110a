#include "lab/table/joint_rows.h"

#include <algorithm>
#include <utility>

#include "lab/table/case_grid.h"

namespace orvenza {
namespace {

/// The outcomes of `wanted` in another run; none if it was not played there.
CaseOutcomes OutcomesIn(const std::vector<FaultCase>& run, const FaultCase& wanted) {
  const auto isNamed = [&](const std::string& name) {
    return [&wanted, &name](const FaultCase& other) {
      return other.step.name == wanted.step.name && other.fault.name == name &&
             other.fault.eachTime == wanted.fault.eachTime;
    };
  };
  auto found = std::find_if(run.begin(), run.end(), isNamed(wanted.fault.name));
  const std::string usual = kUsualCode;
  if (found == run.end() && wanted.fault.name.starts_with("ERR"))
    found = std::find_if(run.begin(), run.end(), isNamed(usual));
  return found == run.end() ? CaseOutcomes() : OutcomesOf(*found);
}

void AddFault(const StepFault& fault, std::array<CaseOutcomes, kRuns> outcomes, std::vector<JointRow>& rows) {
  auto row =
      std::find_if(rows.begin(), rows.end(), [&](const JointRow& r) { return r.outcomes == outcomes; });
  if (row == rows.end()) row = rows.insert(row, {{}, std::move(outcomes)});
  (fault.eachTime ? row->faults.eachTime : row->faults.once).push_back(fault.name);
}

/// Adds the lines of `other` to those of `ways`.
void MergeLogs(const CaseWays& other, CaseWays& ways) {
  using Lines = std::vector<std::string>;
  const auto all = [](const CaseWays& w) {
    Lines lines = w.logged;
    lines.insert(lines.end(), w.sometimes.begin(), w.sometimes.end());
    return lines;
  };
  Lines lines = all(ways);
  for (const std::string& line : all(other)) lines.push_back(line);
  std::sort(lines.begin(), lines.end());
  lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
  std::erase_if(ways.logged, [&](const std::string& line) {
    return std::find(other.logged.begin(), other.logged.end(), line) == other.logged.end();
  });
  std::erase_if(lines, [&](const std::string& line) {
    return std::find(ways.logged.begin(), ways.logged.end(), line) != ways.logged.end();
  });
  ways.sometimes = std::move(lines);
}

}  // namespace

std::vector<JointSection> JointSections(const PlayedCases& contract, const PlayedCases& askInDoubt) {
  std::vector<JointSection> steps;
  for (const FaultCase& faultCase : contract.byDay) {
    if (steps.empty() || steps.back().steps.front() != faultCase.step.name)
      steps.push_back({{faultCase.step.name}, {}});
    AddFault(faultCase.fault,
             {OutcomesOf(faultCase), OutcomesIn(contract.atMidnight, faultCase),
              OutcomesIn(askInDoubt.byDay, faultCase), OutcomesIn(askInDoubt.atMidnight, faultCase)},
             steps.back().rows);
  }
  std::vector<JointSection> sections;
  for (JointSection& step : steps) {
    const auto same = std::find_if(sections.begin(), sections.end(),
                                   [&](const JointSection& s) { return s.rows == step.rows; });
    if (same == sections.end()) {
      sections.push_back(std::move(step));
    } else {
      same->steps.push_back(step.steps.front());
    }
  }
  return sections;
}

std::vector<JointEnd> EndsOf(const JointRow& row) {
  std::vector<JointEnd> ends;
  for (std::size_t run = 0; run < kRuns; ++run) {
    for (const auto& [outcome, ways] : row.outcomes[run]) {
      const bool any = row.outcomes[run].size() == 1 && ways.answers.size() > 1;
      const auto same =
          std::find_if(ends.begin(), ends.end(), [&, &o = outcome, &w = ways](const JointEnd& end) {
            return end.outcome == o && end.ways.answers == w.answers && end.any == any;
          });
      if (same == ends.end()) {
        ends.push_back({outcome, ways, any, {}});
        ends.back().runs.set(run);
      } else {
        MergeLogs(ways, same->ways);
        same->runs.set(run);
      }
    }
  }
  return ends;
}

}  // namespace orvenza
