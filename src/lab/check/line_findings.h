#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tickets/noted_fields.h"
#include "tickets/record.h"

namespace orvenza {

/// A remark on a ticket line.
struct TicketFinding {
  /// Field number of a finding about the whole line.
  static constexpr int kWholeLine = -1;

  bool isError = false;   ///< The connector rejects the line; otherwise a warning.
  std::string_view code;  ///< Its meaning never changes; docs/ticket-check.md lists the codes.
  int field = kWholeLine;
  std::string text;  ///< What was found and what is accepted.
  /// The characters of the field in its line: the first one, from 1, and the one behind the last; both 0 if
  /// the line has no such field. They are those of UTF-8 or, in a line that is not UTF-8, bytes.
  std::size_t column = 0;
  std::size_t endColumn = 0;
};

using TicketFindings = std::vector<TicketFinding>;

/// Ticket bytes in quotes, shown as by ShownBytes and shortened if long.
std::string QuotedBytes(std::string_view bytes);

/// Adds findings about the values of a record: `line` as it is in the file, its `fields`, and the `notes` of
/// its translation.
void FindInValues(std::string_view line, const RecordFields& fields, const TranslationNotes& notes,
                  TicketFindings& findings);

/// Adds findings about text in fields that the record's command does not use.
void FindInUnusedFields(const RecordFields& fields, const TranslationNotes& notes, TicketFindings& findings);

/// Sets the columns of the findings about fields of `line`.
void SetColumns(std::string_view line, const RecordFields& fields, TicketFindings& findings);

/// Adds findings about text after the last field.
void FindBehindFields(const RecordFields& fields, char separator, TicketFindings& findings);

}  // namespace orvenza
