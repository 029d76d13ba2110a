#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvenza {

/// The fields F0 to F8 of one ticket line, in a cleaned copy of the line. Field 0 is the record type. Reusing
/// an object for the next line reuses its memory.
class RecordFields {
 public:
  // Copied, never moved from: the fields of a record without its line would point nowhere.
  RecordFields() = default;
  RecordFields(const RecordFields&) = default;
  RecordFields& operator=(const RecordFields&) = default;

  /// Most fields cut from a line.
  static constexpr std::size_t kMostFields = 9;

  /// Field `number`; "" when the line has no such field. Valid until the record changes or is destroyed.
  std::string_view operator[](std::size_t number) const {
    if (number >= count_) return {};
    return {line_.data() + cuts_[number].start, cuts_[number].length};
  }

  /// Position of field `number`, which must exist, in the original line.
  std::size_t Start(std::size_t number) const { return cuts_[number].start; }

  /// The text after the last field, without trailing blanks.
  std::string_view Rest() const { return {line_.data() + rest_.start, rest_.length}; }

  /// Number of fields, which is the number of separators up to nine. 0 for a line without a separator, or
  /// with only blanks left.
  std::size_t Count() const { return count_; }

  /// Whether the line contains only blanks and control characters: such a line is not a record and is
  /// skipped.
  bool IsEmpty() const { return empty_; }

 private:
  friend void SplitRecord(std::string_view line, char separator, RecordFields& out);

  struct Cut {
    std::size_t start;
    std::size_t length;
  };

  std::string line_;
  // Positions instead of views, so that a copy has its own fields.
  std::array<Cut, kMostFields> cuts_{};
  std::size_t count_ = 0;
  Cut rest_{};
  bool empty_ = true;
};

/// Splits one line (without its line break) into `out`. Control characters (0 to 31) and non-ASCII characters
/// (128 to 255) deliberately become blanks first, and the blanks around the line are removed. Every field,
/// including the last one, is closed by `separator`: text after the last separator, or after the ninth, is
/// not stored. A separator below 32 therefore never matches.
void SplitRecord(std::string_view line, char separator, RecordFields& out);

}  // namespace orvenza
