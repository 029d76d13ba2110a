#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tickets/noted_fields.h"
#include "tickets/record.h"

namespace orvenza {

/// Something to be said about a ticket line.
struct TicketFinding {
  /// The field number of a finding about the line as a whole.
  static constexpr int kWholeLine = -1;

  bool isError = false;   ///< The connector refuses the line; otherwise a warning.
  std::string_view code;  ///< Never changes its meaning; docs/ticket-check.md lists them.
  int field = kWholeLine;
  std::string text;  ///< What was found and what is accepted.
};

using TicketFindings = std::vector<TicketFinding>;

/// A ticket's bytes in quotes, as ShownBytes shows them, cut when long.
std::string QuotedBytes(std::string_view bytes);

/// Adds what is to be said about the values of a record: `line` as it stood in the file, `fields` cut from
/// it, `notes` of its translation.
void FindInValues(std::string_view line, const RecordFields& fields, const TranslationNotes& notes,
                  TicketFindings& findings);

/// Adds what is to be said about text in fields that the record's command has no place for.
void FindInUnusedFields(const RecordFields& fields, const TranslationNotes& notes, TicketFindings& findings);

/// Adds what is to be said about text that is in no field.
void FindBehindFields(const RecordFields& fields, char separator, TicketFindings& findings);

}  // namespace orvenza
