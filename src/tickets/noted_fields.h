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
    kFormatted,  ///< `text` is sent instead of its content, which `form` rejects.
    kReplaced,   ///< It was read, to choose a command for example, but is no value of the command.
    kRead,    ///< It was read, to choose a command for example, but is no value of the command. Any text is
              ///< accepted.
    kChoice,  ///< It is not one of the alternatives in `text`.
    kUnknownType,   ///< It was read as a logo's number.
    kNoSuchChoice,  ///< It names no file that is a valid logo.
    kLogoNumber,    ///< It names a logo without rows.
    kLogo,          ///< It names a valid logo.
    kNoLogo,        ///< It names no file that is a valid logo.
    kEmptyLogo,     ///< It names a logo without rows.
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

  /// A field that selects an alternative; an empty one selects the `first`.
  std::string_view Choice(std::size_t field, std::string_view first) const {
    return Chosen(Read(field, FieldNote::Kind::kChoice), first);
  }

  /// Whether a field that selects one of two alternatives is `text`.
  bool Is(std::size_t field, std::string_view text) const {
    return Read(field, FieldNote::Kind::kChoice) == text;
  }

  /// Invalidates the record: returns "". `accepted` is a literal.
  std::string Refuse(FieldNote::Kind kind, std::size_t field, std::string_view accepted = {}) const;

 private:
  void Note(const FieldNote& note) const {
    if (notes_ != nullptr) notes_->push_back(note);
  }

  const RecordFields& fields_;
  TranslationNotes* notes_;
};

}  // namespace orvenza
