#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvenza {

/// Parses the data of a command from left to right. After the first mismatch every field reads as 0 or empty,
/// and Complete() is false.
class CommandFields {
 public:
  /// A part of a command.
  struct Span {
    std::size_t at;
    std::size_t count;
  };

  /// `command` begins with its four-digit code and must outlive this object. `values`, unless null, receives
  /// the places of the numbers and literals.
  explicit CommandFields(std::string_view command, std::vector<Span>* values = nullptr)
      : size_(command.size()), rest_(command.substr(4)), values_(values) {}

  /// A number of exactly `count` digits.
  std::int64_t Digits(std::size_t count);

  /// The same, with a range.
  std::int64_t DigitsBetween(std::size_t count, std::int64_t least, std::int64_t most);

  /// The two digits at the start of nearly every command.
  void OperatorDigits() { Digits(2); }

  /// A text of exactly `count` characters, without its trailing blanks.
  std::string Text(std::size_t count);

  /// The rest, at most `most` characters, without its trailing blanks.
  std::string Remaining(std::size_t most);

  /// The literal characters `text`.
  void Literal(std::string_view text);

  /// Counts as a mismatch unless `holds`.
  void Require(bool holds) { fits_ = fits_ && holds; }

  /// Whether everything matched and nothing is left.
  bool Complete() const { return fits_ && rest_.empty(); }

 private:
  std::string_view Take(std::size_t count);
  void NoteValue(std::size_t count);

  std::size_t size_;  ///< Length of the command.
  std::string_view rest_;
  bool fits_ = true;
  std::vector<Span>* values_;
};

}  // namespace orvenza
