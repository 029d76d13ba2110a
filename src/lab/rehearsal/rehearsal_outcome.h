#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/simulated_register.h"

namespace orvenza {

/// One event of a rehearsal.
struct RehearsalEvent {
  std::chrono::milliseconds at{};  ///< Since the start, rounded down.
  std::string_view kind;           ///< "sent", "reply", "dialog" and so on; a constant.
  std::string text;                ///< UTF-8 without control characters; may be empty.
  std::size_t times = 1;           ///< How often it happened in a row at this moment.
};

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

}  // namespace orvenza
