#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/simulated_register.h"

namespace orvenza {

struct RehearsalEvent {
  std::chrono::milliseconds at{};  ///< Since the start, rounded down.
  std::string_view kind;           ///< "sent", "reply", "dialog" etc.; a constant.
  std::string text;                ///< UTF-8 without control characters; may be empty.
  std::size_t times = 1;           ///< Consecutive repetitions at this moment.
};

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
