#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

#include "lab/settlement.h"

namespace orvenza {

/// What a row of the table says of an end.
struct SettlementOutcome {
  Verdict verdict = Verdict::kFine;
  CustomerPaper paper;  ///< Of one that asks on, many voided slips count as one, many in part as two.
  FileEnd file = FileEnd::kWaiting;
  std::string reason;

  auto operator<=>(const SettlementOutcome&) const = default;
};

/// How a ticket came to an outcome.
struct SettlementWays {
  std::vector<std::vector<Answer>> answers;  ///< Each list once. What is said about the port does not count.
  std::vector<std::string> logged;           ///< Lines of the error log that each case has,
  std::vector<std::string> sometimes;        ///< and those that only some have.

  bool operator==(const SettlementWays&) const = default;
};

using SettlementOutcomes = std::map<SettlementOutcome, SettlementWays>;

/// Faults that end alike. They and the ends are in the order of the grid.
struct SettlementRow {
  std::vector<std::string> once;      ///< Names of those that strike once,
  std::vector<std::string> eachTime;  ///< and of those that strike each time.
  SettlementOutcomes outcomes;

  bool operator==(const SettlementRow&) const = default;
};

/// Steps at which everything ends alike.
struct SettlementSection {
  std::vector<std::string> steps;
  std::vector<SettlementRow> rows;
};

SettlementOutcomes OutcomesOf(const Settlement& settlement);

/// All settlements of a step must stand together.
std::vector<SettlementSection> SectionsOf(const std::vector<Settlement>& settlements);

}  // namespace orvenza
