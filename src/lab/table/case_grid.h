#pragma once

#include <vector>

#include "lab/table/fault_case.h"
#include "platform/clock.h"

namespace orvenza {

/// When a ticket is printed.
enum class TableHour {
  kDay,
  kMidnight,  ///< So late that its waits for replies begin in the last 15 s of the day.
};

/// Which faults are tried.
enum class TableExtent {
  kWhole,
  kThinned,  ///< Of the error codes that the connector treats alike, one.
};

std::vector<TicketStep> TicketSteps();

/// What the PC's clock shows when the connector starts.
LocalTime StartAt(TableHour hour);

/// For a step without a command: that nothing else goes wrong.
std::vector<StepFault> StepFaults(const TicketStep& step, TableExtent extent);

}  // namespace orvenza
