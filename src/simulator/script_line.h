#pragma once

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orvenza {

/// A line of a script that cannot be read.
struct ScriptMistake {
  std::size_t line = 0;  ///< Counts from 1.
  std::string expected;
};

/// Thrown for an invalid script. what() has a line "file:line: expected ..." for each mistake.
struct ScriptError : std::runtime_error {
  ScriptError(std::string fileName, std::vector<ScriptMistake> inOrder);
  ScriptError(std::string fileName, std::size_t line, std::string expected);

  std::string file;
  std::vector<ScriptMistake> mistakes;  ///< At least one; in the order of their lines.
};

/// Collects the mistakes of a script, so that one run reports all of them.
class ScriptMistakes {
 public:
  /// Calls `read` and keeps the mistakes that it throws. True if there were none.
  template <typename Read>
  bool Try(Read read) {
    try {
      read();
      return true;
    } catch (const ScriptError& error) {
      all_.insert(all_.end(), error.mistakes.begin(), error.mistakes.end());
      return false;
    }
  }

  /// Throws ScriptError if any mistake was kept.
  void ThrowIfAny(const std::string& file);

 private:
  std::vector<ScriptMistake> all_;
};

/// One line of a script, read word by word. Words are separated by blanks and tabs.
class ScriptLine {
 public:
  static constexpr int kMost = std::numeric_limits<int>::max();

  /// `file` and `text` must outlive this object; `number` counts from 1.
  ScriptLine(const std::string& file, std::size_t number, std::string_view text);

  bool AtEnd() const { return rest_.empty(); }
  /// The next non-blank character; NUL at the end.
  char Next() const { return rest_.empty() ? '\0' : rest_.front(); }
  /// The unread rest.
  std::string_view Rest() const { return rest_; }

  [[noreturn]] void Refuse(std::string expected) const;

  /// The next word; empty at the end.
  std::string_view Word();

  /// Skips the next word if it is `word`; otherwise returns false and changes nothing.
  bool Skip(std::string_view word);

  /// The next word, or all of `word`, as a number. Throws if it is outside the range.
  int Number(int least, int most, const std::string& expected);
  int NumberIn(std::string_view word, int least, int most, const std::string& expected) const;

  /// The rest of the line, without its double quotes if it begins with one. Throws if it is empty.
  std::string Text(const std::string& expected);

  /// Throws if anything is left.
  void End() const;

 private:
  const std::string& file_;
  std::size_t number_;
  std::string_view rest_;
};

}  // namespace orvenza
