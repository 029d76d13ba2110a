#include "tickets/text_mask.h"

#include <algorithm>

#include "tickets/record.h"

namespace orvenza {
namespace {

/// The fields of a record type that are no texts. A field or a type that is missing here is masked: too much
/// is better than too little.
struct ValueFields {
  std::string_view type;
  std::string_view fields;
};

constexpr ValueFields kValueFields[] = {
    {"0", "1"},      {"1", "23478"}, {"2", "123"},  {"3", "2368"}, {"4", "1"},     {"5", "1245"},
    {"6", "123"},    {"7", "1235"},  {"8", "12"},   {"9", "2358"}, {"14", "1235"}, {"15", "12"},
    {"17", "24"},    {"20", "1"},    {"21", ""},    {"22", ""},    {"23", "2"},    {"24", "2"},
    {"25", "24"},    {"26", ""},     {"27", "12"},  {"28", "1"},   {"29", "1"},    {"30", "12"},
    {"31", "1"},     {"32", "123"},  {"33", "1"},   {"34", "123"}, {"35", "123"},  {"36", "12"},
    {"37", "1"},     {"38", "124"},  {"39", "124"}, {"40", "1"},   {"41", "1"},    {"42", "12"},
    {"43", "12345"},
};

/// Type 1 without an item: a choice stands where the description would.
constexpr std::string_view kType1WithoutItem = "12468";
/// The file name of type 33 is the integrator's own, and what support asks for first.
constexpr std::string_view kLogoType = "33";
constexpr std::size_t kLogoPath = 2;

const ValueFields* Find(std::string_view type) {
  const auto* const found = std::find_if(std::begin(kValueFields), std::end(kValueFields),
                                         [&](const ValueFields& row) { return row.type == type; });
  return found == std::end(kValueFields) ? nullptr : found;
}

/// The values of a record; its field 0 is one of them where the type is known.
std::string ValuesOf(const RecordFields& fields) {
  const ValueFields* row = Find(fields[0].empty() ? "0" : fields[0]);
  if (row == nullptr) return {};
  const bool withoutItem = row->type == "1" && fields[8] == "-1";
  return "0" + std::string(withoutItem ? kType1WithoutItem : row->fields);
}

bool IsNumber(std::string_view field) {
  return field.find_first_not_of("0123456789 +-,.") == std::string_view::npos;
}

bool Stays(std::size_t number, std::string_view field, std::string_view type, std::string_view values) {
  if (type == kLogoType && number == kLogoPath) return true;
  return number <= 9 && values.find(static_cast<char>('0' + number)) != std::string_view::npos &&
         IsNumber(field);
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
  // Control characters and blanks would all be separators, and are too easily mistaken.
  if (separator <= ' ') return MaskAll(line);
  RecordFields fields;
  SplitRecord(line, separator, fields);
  const std::string values = ValuesOf(fields);
  // The record begins where its cleaned copy does: behind all that counts as a blank.
  const auto isText = [](char c) { return c > ' ' && static_cast<unsigned char>(c) < 128; };
  auto at = static_cast<std::size_t>(std::find_if(line.begin(), line.end(), isText) - line.begin());
  std::string masked = MaskAll(line.substr(0, at));
  for (std::size_t number = 0; number < fields.Count(); ++number) {
    const std::size_t end = line.find(separator, at);
    const std::string_view field = line.substr(at, end - at);
    masked += Stays(number, field, fields[0], values) ? std::string(field) : MaskAll(field);
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

}  // namespace orvenza
