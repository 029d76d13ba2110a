#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/table/fault_case.h"

namespace orvenza {

/// The cases of one way of working. At midnight they are the same as by day, or none.
struct PlayedCases {
  std::vector<FaultCase> byDay;
  std::vector<FaultCase> atMidnight = {};
};

/// The table in Markdown: the totals, the rules behind forbidden ends, and a section for every group of steps
/// with the same ends. Faults with the same ends share a row, and so do answers. Of midnight only the ends
/// that differ from those by day are shown, and of `askInDoubt`, whose cases are some of the contract's, only
/// those that differ from them.
std::string FailureTable(const PlayedCases& contract, const PlayedCases& askInDoubt = {});

/// Number of ways in which a ticket came to an end of this kind.
std::size_t CountEnds(const std::vector<FaultCase>& cases, Verdict verdict);

/// `document` with `table` between the two lines that mark its place. If `document` is empty, the table
/// between such lines; if it lacks them, nothing.
[[nodiscard]] std::optional<std::string> PlaceTable(const std::string& document, const std::string& table);

}  // namespace orvenza
