#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "lab/table/case_grid.h"
#include "lab/table/fault_case.h"

namespace orvenza {

/// Number of dialogs with a choice for which every answer is tried; later ones get the answer that proceeds.
inline constexpr std::size_t kCaseDepth = 2;

/// Tries every answer of the operator systematically.
FaultCase PlayCase(const TicketStep& step, const StepFault& fault, std::size_t depth = kCaseDepth,
                   TableHour hour = TableHour::kDay, WayOfWorking way = WayOfWorking::kContract);

/// Plays the steps with all their faults, in order. `progress`, which may be null, is called after each
/// fault.
std::vector<FaultCase> PlayCases(const std::vector<TicketStep>& steps, TableExtent extent, TableHour hour,
                                 WayOfWorking way,
                                 const std::function<void(std::size_t done, std::size_t all)>& progress = {});

}  // namespace orvenza
