#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tickets/command_text.h"
#include "tickets/field_format.h"
#include "tickets/record.h"

namespace orvenza {

/// How the translation used one field of a record.
struct FieldNote {
  enum class Kind {
    kFormatted,     ///< It became a value of the command by `form`, which rejects it or not.
    kReplaced,      ///< `text` is sent in place of what it holds, which `form` rejects.
    kRead,          ///< It was read as any text, to choose a command, but is no value of the command.
    kChoice,        ///< It was compared with the texts that choose a command; any other text is lost.
    kUnknownType,   ///< Field 0: there is no such record type.
    kNoSuchChoice,  ///< It is none of the alternatives in `text`.
    kLogoNumber,    ///< It was read as the number of a logo.
    kLogo,          ///< It names a bitmap that can be a logo.
    kNoLogo,        ///< It names no bitmap that can be a logo.
    kEmptyLogo,     ///< It names one without any row.
  };
  Kind kind;
  std::size_t field;
  ValueForm form{};
  std::string_view text{};
};

/// The notes of one translation, in the order of the command's values.
using TranslationNotes = std::vector<FieldNote>;

/// The translation's view of a record's fields. On request it notes the use of each.
class NotedFields {
 public:
  /// `notes` may be null. Both arguments must outlive this object.
  explicit NotedFields(const RecordFields& fields, TranslationNotes* notes = nullptr)
      : fields_(fields), notes_(notes) {}

  const RecordFields& Record() const { return fields_; }
  std::string_view operator[](std::size_t field) const { return fields_[field]; }

  /// The field converted by a form; "" when the form rejects it.
  std::string Format(std::size_t field, const ValueForm& form) const {
    Note({FieldNote::Kind::kFormatted, field, form});
    return form(fields_[field]);
  }

  /// The same with a substitute for a rejected value.
  std::string FormatOr(std::size_t field, const ValueForm& form, std::string_view substitute) const;

  /// The first `width` characters of a text of which the whole command contains `sent`.
  std::string Text(std::size_t field, int width, int sent) const;
  std::string Text(std::size_t field, int width) const { return Text(field, width, width); }

  /// Returns `sent`, the substitute in the command for the field's own value, which `form` rejects.
  std::string_view Replace(std::size_t field, const ValueForm& form, std::string_view sent) const;

  /// The unchanged field, for a command that depends on it but does not contain it.
  std::string_view Read(std::size_t field, FieldNote::Kind kind = FieldNote::Kind::kRead) const {
    Note({kind, field});
    return fields_[field];
  }

  /// A field that chooses between alternatives; an empty one chooses the `first`.
  std::string_view Choice(std::size_t field, std::string_view first) const {
    return Chosen(Read(field, FieldNote::Kind::kChoice), first);
  }

  /// Whether a field that chooses between two alternatives is `text`.
  bool Is(std::size_t field, std::string_view text) const {
    return Read(field, FieldNote::Kind::kChoice) == text;
  }

  /// Makes the record invalid: returns "". `accepted` is a literal.
  std::string Refuse(FieldNote::Kind kind, std::size_t field, std::string_view accepted = {}) const;

 private:
  void Note(const FieldNote& note) const {
    if (notes_ != nullptr) notes_->push_back(note);
  }

  const RecordFields& fields_;
  TranslationNotes* notes_;
};

}  // namespace orvenza
