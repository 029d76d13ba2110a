#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "lab/rehearsal/scenario.h"
#include "lab/rehearsal/transcript.h"
#include "simulator/simulated_register.h"

namespace orvenza {

/// What is left when a rehearsal is over.
struct RehearsalOutcome {
  bool ended = false;  ///< The connector ran to an end of its own.
  /// What went wrong, in sentences: why the run was broken off, an event that could not be done, answers that
  /// were never asked for, expectations that did not come true. Empty: the rehearsal went as it should.
  std::vector<std::string> problems;
  std::vector<RehearsalEvent> events;        ///< Empty without a transcript.
  std::vector<std::string> sent;             ///< Every command, in the register's bytes.
  std::chrono::milliseconds lastSent{};      ///< When the last command was sent.
  std::vector<std::string> paper;            ///< Every line, in the register's bytes.
  std::vector<PrintedReceipt> receipts;      ///< Closed and voided ones.
  bool receiptOpen = false;                  ///< One is still open.
  std::map<std::string, std::string> files;  ///< Contents by path.
};

/// Runs the whole connector from its entry to its end: in C:\Orvenza on a disk in memory, on the virtual
/// clock, against the simulated register and with the operator's answers. The same scenario gives the same
/// outcome on every system. `sink` is handed each line of the transcript as soon as it is complete.
RehearsalOutcome Rehearse(const Scenario& scenario, Transcript::Sink sink = {});

}  // namespace orvenza
