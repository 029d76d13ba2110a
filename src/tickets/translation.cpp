#include "tickets/translation.h"

#include "tickets/command_text.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

/// An empty type counts as this one.
constexpr std::string_view kFirstType = "0";

std::string Translate(const RecordFields& fields, TranslationNotes* notes,
                      const TranslationContext& context) {
  const NotedFields noted(fields, notes);
  const RecordType* const type = FindRecordType(Chosen(fields[0], kFirstType));
  return type == nullptr ? noted.Refuse(FieldNote::Kind::kUnknownType, 0) : type->translate(noted, context);
}

}  // namespace

bool IsLongRunning(std::string_view translation) {
  return translation.ends_with(kLongRunningMark) &&
         (translation.starts_with("20") || translation.starts_with("3001") ||
          translation.starts_with("3002"));
}

RecordTranslator::RecordTranslator(const RegisterIdentity& identity, const AppSettings& settings,
                                   const FileReader& files, Logs& logs)
    : identity_(identity), settings_(settings), files_(files), logs_(logs) {}

std::string RecordTranslator::TranslateRecord(const RecordFields& fields, TranslationNotes* notes) const {
  return Translate(fields, notes, {identity_, settings_, &files_, &logs_});
}

TranslationNotes NotesOf(const RecordFields& fields) {
  TranslationNotes notes;
  Translate(fields, &notes, {RegisterIdentity(), AppSettings(), nullptr, nullptr});
  return notes;
}

}  // namespace orvenza
