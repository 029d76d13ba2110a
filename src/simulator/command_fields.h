#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvenza {

/// Takes the data of a command apart from left to right. Once something does not fit, everything after it
/// reads as 0 or empty, and Complete() is false.
class CommandFields {
 public:
  /// `command` begins with its four-digit code and must outlive this object.
  explicit CommandFields(std::string_view command) : code_(command.substr(0, 4)), rest_(command.substr(4)) {}

  std::string_view Code() const { return code_; }

  /// A number of exactly `count` digits.
  std::int64_t Digits(std::size_t count);

  /// A number as above that lies in a range.
  std::int64_t DigitsBetween(std::size_t count, std::int64_t least, std::int64_t most);

  /// The two digits that nearly every command begins with.
  void OperatorDigits() { Digits(2); }

  /// A text of exactly `count` characters; its trailing blanks are left out.
  std::string Text(std::size_t count);

  /// What is left, at most `most` characters; its trailing blanks are left out.
  std::string Remaining(std::size_t most);

  /// The fixed characters `text`.
  void Literal(std::string_view text);

  /// Whether everything fitted and nothing is left.
  bool Complete() const { return fits_ && rest_.empty(); }

 private:
  std::string_view Take(std::size_t count);

  std::string_view code_;
  std::string_view rest_;
  bool fits_ = true;
};

}  // namespace orvenza
