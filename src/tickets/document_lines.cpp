#include "tickets/document_lines.h"

#include <algorithm>
#include <memory>
#include <string>

#include "tickets/line_reader.h"
#include "tickets/record.h"
#include "tickets/record_types.h"

namespace orvenza {
namespace {

LineReader ReaderOf(std::string_view text) { return LineReader(std::make_unique<ViewBytes>(text)); }

/// The records of a text, without its empty lines.
class RecordReader {
 public:
  RecordReader(std::string_view text, std::size_t skipped, char separator)
      : reader_(ReaderOf(text)), separator_(separator) {
    while (number_ < skipped && reader_.ReadLine(line_)) ++number_;
  }

  bool Next() {
    while (reader_.ReadLine(line_)) {
      ++number_;
      SplitRecord(line_, separator_, fields_);
      if (!fields_.IsEmpty()) return true;
    }
    return false;
  }

  [[nodiscard]] std::size_t Number() const { return number_; }
  [[nodiscard]] std::string_view Type() const { return fields_[0]; }
  [[nodiscard]] bool Has(bool RecordRoles::*role) const { return HasRole(Type(), role); }

 private:
  LineReader reader_;
  char separator_;
  std::string line_;
  RecordFields fields_;
  std::size_t number_ = 0;
};

}  // namespace

std::size_t LinesThroughDocument(std::string_view text, std::size_t number, char separator) {
  RecordReader record(text, number - 1, separator);
  bool more = record.Next();
  if (more && record.Has(&RecordRoles::standsAlone)) return number;
  while (more && !record.Has(&RecordRoles::endsReceipt)) more = record.Next();
  std::size_t last = record.Number();
  const bool paid =
      more && (record.Has(&RecordRoles::closesTicket) || record.Has(&RecordRoles::followsClosing));
  while (paid && record.Next() &&
         (record.Has(&RecordRoles::closesTicket) || record.Has(&RecordRoles::followsClosing)))
    last = record.Number();
  return last;
}

std::size_t LinesThroughCommand(std::string_view text, std::size_t number, char separator) {
  RecordReader record(text, number - 1, separator);
  const bool completes = record.Next() && MayComplete(record.Type());
  return completes ? LinesThroughDocument(text, number, separator) : number - 1;
}

std::optional<std::size_t> LinesBeforeDocument(std::string_view text, std::size_t count, char separator) {
  RecordReader record(text, count, separator);
  while (record.Next()) {
    const bool paperless = record.Has(&RecordRoles::standsAlone) && !MayComplete(record.Type());
    if (!paperless) return record.Number() - 1;
  }
  return std::nullopt;
}

std::size_t CompleteLines(std::string_view text, const DocumentProgress& progress, char separator) {
  RecordReader record(text, progress.Paid(), separator);
  return progress.Paid() == 0 || !record.Next() ? std::max(progress.Complete(), progress.Paid())
                                                : progress.CompleteBefore(record.Type());
}

bool AnythingBehind(std::string_view text, std::size_t count, char separator) {
  return RecordReader(text, count, separator).Next();
}

bool CompletesAnything(std::string_view text, char separator) {
  RecordReader record(text, 0, separator);
  while (record.Next()) {
    if (MayComplete(record.Type())) return true;
  }
  return false;
}

bool BeginAlike(std::string_view text, std::string_view other, std::size_t count) {
  LineReader reader = ReaderOf(text);
  LineReader otherReader = ReaderOf(other);
  std::string line;
  std::string otherLine;
  for (; count > 0; --count) {
    const bool more = reader.ReadLine(line);
    if (more != otherReader.ReadLine(otherLine) || line != otherLine) return false;
  }
  return true;
}

}  // namespace orvenza
