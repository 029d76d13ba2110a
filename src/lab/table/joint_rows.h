#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <vector>

#include "lab/table/failure_table.h"
#include "lab/table/table_rows.h"

namespace orvenza {

/// The runs of the table: the contract by day and at midnight, then AskInDoubt by day and at midnight.
inline constexpr std::size_t kRuns = 4;

/// An end of a row, and the runs in which it occurs.
struct JointEnd {
  CaseOutcome outcome;
  CaseWays ways;     ///< Lines that only some of the runs log are among `sometimes`.
  bool any = false;  ///< Every answer leads to this outcome, and there are several.
  std::bitset<kRuns> runs;
};

/// Faults with the same ends in each run.
struct JointRow {
  TableRow faults;  ///< Without outcomes.
  std::array<CaseOutcomes, kRuns> outcomes;

  bool operator==(const JointRow&) const = default;
};

/// Steps with the same rows.
struct JointSection {
  std::vector<std::string> steps;
  std::vector<JointRow> rows;
};

/// All cases, unlike those of FailureTable, which leaves out what is repeated. An error code that was not
/// played with AskInDoubt has the ends of the code that stands for it.
std::vector<JointSection> JointSections(const PlayedCases& contract, const PlayedCases& askInDoubt);

/// The ends of a row, those of the first run first.
std::vector<JointEnd> EndsOf(const JointRow& row);

}  // namespace orvenza
