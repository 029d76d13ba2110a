#include "tickets/translation.h"

#include "tickets/command_text.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

/// An empty type counts as this one.
constexpr std::string_view kFirstType = "0";

/// Larger logo numbers are sent as this.
constexpr double kLargestLogo = 999'999'999;

/// Everything besides the record that affects its translation.
struct Surroundings {
  const RegisterIdentity& identity;
  const AppSettings& settings;
  const FileReader& files;
  Logs& logs;
};

using Record = const NotedFields&;
using With = const Surroundings&;

std::string NumberOr01(Record f, std::size_t field) { return f.FormatOr(field, FmtNum2Max20, "01"); }
std::string AmountOrZero(Record f, std::size_t field) { return f.FormatOr(field, FmtAmount9, "000000000"); }

/// Invalid: the field that selects an alternative is not one of `accepted`.
std::string NoSuchChoice(Record f, std::size_t field, std::string_view accepted) {
  return f.Refuse(FieldNote::Kind::kNoSuchChoice, field, accepted);
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
