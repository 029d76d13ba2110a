#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/table/fault_case.h"

namespace orvenza {

/// The table in Markdown: the figures of the whole, the rules that forbidden ends are put down to,
/// and a section for every group of steps at which everything ends alike. Faults that end alike share a row,
/// and so do answers. Of the cases played at midnight, the same list or none, it shows what ends otherwise
/// than by day.
std::string FailureTable(const std::vector<FaultCase>& byDay, const std::vector<FaultCase>& atMidnight = {});

/// `document` with `table` between the two lines that mark its place; the table alone, between such lines,
/// where `document` is empty; nothing where it lacks them.
[[nodiscard]] std::optional<std::string> PlaceTable(const std::string& document, const std::string& table);

}  // namespace orvenza
