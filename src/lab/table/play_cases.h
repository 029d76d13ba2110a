#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "lab/table/case_grid.h"
#include "lab/table/fault_case.h"

namespace orvenza {

/// Dialogs with a choice whose every answer is tried; later ones are answered in the way that goes forward.
inline constexpr std::size_t kCaseDepth = 2;

/// Tries every answer of the operator, systematically.
FaultCase PlayCase(const TicketStep& step, const StepFault& fault, std::size_t depth = kCaseDepth,
                   TableHour hour = TableHour::kDay);

/// Plays steps with each of their faults, in order. `progress` is told after each how many of how many are
/// done; null: nobody.
std::vector<FaultCase> PlayCases(const std::vector<TicketStep>& steps, TableExtent extent, TableHour hour,
                                 const std::function<void(std::size_t done, std::size_t all)>& progress = {});

}  // namespace orvenza
