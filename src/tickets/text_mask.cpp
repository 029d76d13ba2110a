#include "tickets/text_mask.h"

#include <algorithm>

#include "core/catalogue.h"
#include "tickets/record.h"
#include "tickets/translation.h"

namespace orvenza {
namespace {

bool IsNumber(std::string_view field) {
  return field.find_first_not_of("0123456789 +-,.") == std::string_view::npos;
}

bool IsValue(const FieldNote& note) {
  if (note.kind == FieldNote::Kind::kFormatted) return note.form.kind != ValueKind::kText;
  return note.kind != FieldNote::Kind::kUnknownType;
}

/// Whether a field is kept. A field without a note is masked: masking too much is better than too little.
bool Stays(std::size_t number, std::string_view field, const TranslationNotes& notes) {
  bool isValue = number == 0;  // The type has a note only if it is unknown.
  for (const FieldNote& note : notes) {
    if (note.field != number) continue;
    // The file name of a logo comes from the integrator, and support needs it first.
    if (note.kind == FieldNote::Kind::kLogo) return true;
    if (!IsValue(note)) return false;
    isValue = true;
  }
  return isValue && IsNumber(field);
}

}  // namespace

std::string MaskAll(std::string_view bytes) {
  std::string masked(bytes);
  for (char& c : masked) {
    if (c >= '0' && c <= '9') c = '9';
    if (c >= 'A' && c <= 'Z') c = 'X';
    if ((c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) > 127) c = 'x';
  }
  return masked;
}

std::string MaskTexts(std::string_view line, char separator) {
  // Any control character or blank would be a separator, which is too easily confused.
  if (separator <= ' ') return MaskAll(line);
  RecordFields fields;
  SplitRecord(line, separator, fields);
  const TranslationNotes notes = NotesOf(fields);
  // The record begins where its cleaned copy does: after everything that counts as a blank.
  const auto isText = [](char c) { return c > ' ' && static_cast<unsigned char>(c) < 128; };
  auto at = static_cast<std::size_t>(std::find_if(line.begin(), line.end(), isText) - line.begin());
  std::string masked = MaskAll(line.substr(0, at));
  for (std::size_t number = 0; number < fields.Count(); ++number) {
    const std::size_t end = line.find(separator, at);
    const std::string_view field = line.substr(at, end - at);
    masked += Stays(number, field, notes) ? std::string(field) : MaskAll(field);
    masked += separator;
    at = end + 1;
  }
  return masked + MaskAll(line.substr(at));
}

std::string MaskTicketTexts(std::string_view content, char separator) {
  std::string masked;
  while (!content.empty()) {
    const std::size_t end = std::min(content.find_first_of("\r\n"), content.size());
    masked += MaskTexts(content.substr(0, end), separator);
    const std::size_t next = std::min(content.find_first_not_of("\r\n", end), content.size());
    masked.append(content.substr(end, next - end));
    content.remove_prefix(next);
  }
  return masked;
}

std::string MaskLog(const std::string& log, char separator, bool& masked) {
  const std::string line = LoadMessage(MessageId::kInvalidLine) + " ";
  const std::string file = LoadMessage(MessageId::kInvalidBitmap) +
                           " ";  // The quoted field should name a file but may contain anything.
  std::string result;
  for (std::size_t at = 0; at < log.size();) {
    const std::size_t lineAt = log.find(line, at);
    const std::size_t fileAt = log.find(file, at);
    if (lineAt == fileAt) return result + log.substr(at);  // Neither is left.
    const std::size_t start = lineAt < fileAt ? lineAt + line.size() : fileAt + file.size();
    const std::size_t end = std::min(log.find_first_of("\r\n", start), log.size());
    const std::string_view quoted = std::string_view(log).substr(start, end - start);
    result += log.substr(at, start - at);
    result += lineAt < fileAt ? MaskTexts(quoted, separator) : MaskAll(quoted);
    masked = masked || end > start;
    at = end;
  }
  return result;
}

}  // namespace orvenza
