#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

#include "lab/table/fault_case.h"

namespace orvenza {

/// What a row of the table says of an end.
struct CaseOutcome {
  Verdict verdict = Verdict::kFine;
  CustomerPaper paper;  ///< Of one that asks on, many voided slips count as one, many in part as two.
  FileEnd file = FileEnd::kWaiting;
  std::string reason;

  auto operator<=>(const CaseOutcome&) const = default;
};

/// How a ticket came to an outcome.
struct CaseWays {
  std::vector<std::vector<Answer>> answers;  ///< Each list once. What is said about the port does not count.
  std::vector<std::string> logged;           ///< Lines of the error log that each case has,
  std::vector<std::string> sometimes;        ///< and those that only some have.

  bool operator==(const CaseWays&) const = default;
};

using CaseOutcomes = std::map<CaseOutcome, CaseWays>;

/// Faults that end alike. They and the ends are in the order of the grid.
struct TableRow {
  std::vector<std::string> once;      ///< Names of those that strike once,
  std::vector<std::string> eachTime;  ///< and of those that strike each time.
  CaseOutcomes outcomes;

  bool operator==(const TableRow&) const = default;
};

/// Steps at which everything ends alike.
struct TableSection {
  std::vector<std::string> steps;
  std::vector<TableRow> rows;
};

CaseOutcomes OutcomesOf(const FaultCase& faultCase);

/// All cases of a step must stand together.
std::vector<TableSection> SectionsOf(const std::vector<FaultCase>& cases);

}  // namespace orvenza
