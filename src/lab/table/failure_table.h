#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/table/fault_case.h"

namespace orvenza {

/// The table in Markdown: the totals, the rules behind forbidden ends, and a section for every group of steps
/// with the same ends. Faults with the same ends share a row, and so do answers. Of `atMidnight`, which has
/// the same cases or none, only the ends that differ from those by day are shown.
std::string FailureTable(const std::vector<FaultCase>& byDay, const std::vector<FaultCase>& atMidnight = {});

/// `document` with `table` between the two lines that mark its place. If `document` is empty, the table
/// between such lines; if it lacks them, nothing.
[[nodiscard]] std::optional<std::string> PlaceTable(const std::string& document, const std::string& table);

}  // namespace orvenza
