#include "tickets/noted_fields.h"

namespace orvenza {

std::string NotedFields::FormatOr(std::size_t field, const ValueForm& form,
                                  std::string_view substitute) const {
  std::string value = form(fields_[field]);
  if (!value.empty()) {
    Note({FieldNote::Kind::kFormatted, field, form});
    return value;
  }
  Note({FieldNote::Kind::kReplaced, field, form, substitute});
  return std::string(substitute);
}

std::string NotedFields::Text(std::size_t field, int width, int sent) const {
  Note({FieldNote::Kind::kFormatted, field, TextOf(sent)});
  return FmtText(fields_[field], width);
}

std::string_view NotedFields::Replace(std::size_t field, const ValueForm& form, std::string_view sent) const {
  Note({FieldNote::Kind::kReplaced, field, form, sent});
  return sent;
}

std::string NotedFields::Refuse(FieldNote::Kind kind, std::size_t field, std::string_view accepted) const {
  Note({kind, field, {}, accepted});
  return {};
}

}  // namespace orvenza
