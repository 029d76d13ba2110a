#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

#include "lab/table/fault_case.h"

namespace orvenza {

/// A table row's description of an end.
struct CaseOutcome {
  Verdict verdict = Verdict::kFine;
  CustomerPaper paper;  ///< If the operator is asked endlessly, many voided slips count as one, many partial
                        ///< ones as two.
  FileEnd file = FileEnd::kWaiting;
  std::string reason;

  auto operator<=>(const CaseOutcome&) const = default;
};

/// The ways in which a ticket came to an outcome.
struct CaseWays {
  std::vector<std::vector<Answer>> answers;  ///< Each list once. Answers about the port are left out.
  std::vector<std::string> logged;           ///< Lines of the error log in every case,
  std::vector<std::string> sometimes;        ///< and those only in some.

  bool operator==(const CaseWays&) const = default;
};

using CaseOutcomes = std::map<CaseOutcome, CaseWays>;

/// Faults with the same ends. Faults and ends are in grid order.
struct TableRow {
  std::vector<std::string> once;      ///< Names of faults that occur once,
  std::vector<std::string> eachTime;  ///< and of those that occur every time.
  CaseOutcomes outcomes;

  bool operator==(const TableRow&) const = default;
};

/// Steps with the same ends.
struct TableSection {
  std::vector<std::string> steps;
  std::vector<TableRow> rows;
};

CaseOutcomes OutcomesOf(const FaultCase& faultCase);

/// All cases of a step must be consecutive.
std::vector<TableSection> SectionsOf(const std::vector<FaultCase>& cases);

}  // namespace orvenza
