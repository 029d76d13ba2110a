#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lab/rehearsal/scenario.h"

namespace orvenza {

/// A command of a ticket, or another moment of it, at which something goes wrong.
struct TicketStep {
  std::string name;
  /// A scenario (docs/rehearsal.md) without anything that goes wrong at the step itself. Its last file is the
  /// ticket; one before it is an earlier ticket that leaves its receipt open.
  std::string scenario;
  /// What the command begins with, and which one in the scenario it is; empty where the ticket itself goes
  /// wrong.
  std::string command;
  std::size_t occurrence = 1;
};

/// Something that goes wrong with a command.
struct StepFault {
  std::string name;
  /// What the simulated register does, a fault a line, without the words that say with which command.
  std::vector<std::string> effects;
  bool eachTime = false;  ///< It strikes this command whenever it is sent from then on.
  /// What happens while the connector waits for the reply.
  std::optional<EventKind> meanwhile;
  std::chrono::milliseconds delay{};  ///< How long after the command was sent.
};

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
