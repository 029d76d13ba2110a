#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "app/trace/transcript_event.h"
#include "simulator/simulated_register.h"

namespace orvenza {

using RehearsalEvent = TranscriptEvent;

/// The result of a rehearsal.
struct RehearsalOutcome {
  bool ended = false;  ///< The connector ended by itself.
  /// Problems as sentences: why the run was stopped, failed events, unused answers, unmet expectations. Empty
  /// if the rehearsal succeeded.
  std::vector<std::string> problems;
  std::vector<RehearsalEvent> events;        ///< Empty without a transcript.
  std::vector<std::string> sent;             ///< Every command, in the register's encoding.
  std::chrono::milliseconds lastSent{};      ///< When the last command was sent.
  std::vector<std::string> paper;            ///< Every line, in the register's encoding.
  std::vector<PrintedReceipt> receipts;      ///< Closed and voided ones.
  bool receiptOpen = false;                  ///< Whether a receipt is still open.
  std::map<std::string, std::string> files;  ///< Contents by path.
};

}  // namespace orvenza
