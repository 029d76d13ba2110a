#pragma once

#include <vector>

#include "lab/table/fault_case.h"
#include "platform/clock.h"

namespace orvenza {

/// The time of day at which a ticket is printed.
enum class TableHour {
  kDay,
  kMidnight,  ///< So late that timeouts for replies begin in the last 15 s of the day.
};

/// The extent of the faults to try.
enum class TableExtent {
  kWhole,
  kThinned,  ///< Only one error code of each group that the connector treats alike.
};

/// The error code that stands for all others of its group in the thinned table.
inline constexpr const char* kUsualCode = "ERR08";

std::vector<TicketStep> TicketSteps();

/// The PC's time when the connector starts.
LocalTime StartAt(TableHour hour);

/// The faults of a step. For a step without a command it is a single one without effects.
std::vector<StepFault> StepFaults(const TicketStep& step, TableExtent extent);

}  // namespace orvenza
