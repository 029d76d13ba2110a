#pragma once

#include <string_view>

#include "tickets/record_types.h"

namespace orvenza {

/// Follows the non-empty lines of a file and determines where "File Parser" begins another ticket: at the
/// first line after a closing section that does not belong to it.
class TicketBoundary {
 public:
  explicit TicketBoundary(char separator) : separator_(separator) {}

  /// The type of a line for a boundary. Unlike in the translation, a blank before it counts.
  std::string_view TypeOf(std::string_view line) const { return line.substr(0, line.find(separator_)); }

  /// Processes the next line; true when it is the first of another ticket.
  bool Begins(std::string_view line) {
    const std::string_view type = TypeOf(line);
    const bool closes = HasRole(type, &RecordRoles::closesTicket);
    const bool begins = closing_ && !closes && !HasRole(type, &RecordRoles::followsClosing);
    closing_ = !begins && (closing_ || closes);
    return begins;
  }

 private:
  char separator_;
  bool closing_ = false;
};

}  // namespace orvenza
