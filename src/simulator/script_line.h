#pragma once

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvenza {

/// A line of a script that cannot be read. what() is "file:line: expected ...".
struct ScriptError : std::runtime_error {
  ScriptError(std::string fileName, std::size_t lineNumber, std::string whatIsExpected);

  std::string file;
  std::size_t line;
  std::string expected;
};

/// One line of a script, read word by word. Words are separated by blanks and tabs.
class ScriptLine {
 public:
  static constexpr int kMost = std::numeric_limits<int>::max();

  /// `file` and `text` must outlive this object; `number` counts from 1.
  ScriptLine(const std::string& file, std::size_t number, std::string_view text);

  bool AtEnd() const { return rest_.empty(); }
  /// The next character that is no blank, NUL at the end.
  char Next() const { return rest_.empty() ? '\0' : rest_.front(); }
  /// What has not been read.
  std::string_view Rest() const { return rest_; }

  [[noreturn]] void Refuse(std::string expected) const;

  /// The next word, empty at the end.
  std::string_view Word();

  /// The next word when it is `word`; false leaves the line as it is.
  bool Skip(std::string_view word);

  /// The next word, or all of `word`, as a number. Refuses what is none of the range.
  int Number(int least, int most, const std::string& expected);
  int NumberIn(std::string_view word, int least, int most, const std::string& expected) const;

  /// The rest of the line, which must not be empty; without its double quotes where it begins with one.
  std::string Text(const std::string& expected);

  /// Refuses anything that is left.
  void End() const;

 private:
  const std::string& file_;
  std::size_t number_;
  std::string_view rest_;
};

}  // namespace orvenza
