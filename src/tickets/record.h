#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvenza {

/// The fields of one ticket line, F0 to F8, over a cleaned copy of the line. Field 0 is the record type.
/// Filling a record again with the next line reuses its memory.
class RecordFields {
 public:
  // Copied, never moved from: the fields of a record that lost its line would point nowhere.
  RecordFields() = default;
  RecordFields(const RecordFields&) = default;
  RecordFields& operator=(const RecordFields&) = default;

  /// Most fields that are cut from a line.
  static constexpr std::size_t kMostFields = 9;

  /// Field `number`; "" when the line has no such field. Good until the record changes or goes.
  std::string_view operator[](std::size_t number) const {
    if (number >= count_) return {};
    return {line_.data() + cuts_[number].start, cuts_[number].length};
  }

  /// Where field `number`, which the line must have, begins in the line as it was given.
  std::size_t Start(std::size_t number) const { return cuts_[number].start; }

  /// What stands behind the last field and belongs to none, without the blanks at the line's end.
  std::string_view Rest() const { return {line_.data() + rest_.start, rest_.length}; }

  /// Number of fields cut: of separators found, at most nine. 0 for a line without any separator, or one of
  /// which nothing but blanks is left.
  std::size_t Count() const { return count_; }

  /// Whether the line holds nothing but blanks and control characters: such a line is no record and is
  /// skipped.
  bool IsEmpty() const { return empty_; }

 private:
  friend void SplitRecord(std::string_view line, char separator, RecordFields& out);

  struct Cut {
    std::size_t start;
    std::size_t length;
  };

  std::string line_;
  // Places in the line, not views of it, so that a copy has fields of its own.
  std::array<Cut, kMostFields> cuts_{};
  std::size_t count_ = 0;
  Cut rest_{};
  bool empty_ = true;
};

/// Cuts one line (without its line end) into `out`. Control characters (0 to 31) and characters that are not
/// ASCII (128 to 255) become blanks first, deliberately, and the blanks around the line are removed. Every
/// field, the last one too, is closed by `separator`: text after the last separator, or after the ninth, is
/// not stored. A separator below 32 therefore never matches.
void SplitRecord(std::string_view line, char separator, RecordFields& out);

}  // namespace orvenza
