#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>

namespace orvenza {

/// Characters per line of the register's paper.
inline constexpr std::size_t kPaperColumns = 40;

/// The printed paper of the simulated register.
class PaperRoll {
 public:
  /// Only the latest lines are kept, so that days of printing do not fill the memory.
  static constexpr std::size_t kLinesKept = 10000;

  using Sink = std::function<void(const std::string& line)>;

  /// Receives each line as it is printed (a terminal, a file); null if none.
  void SetSink(Sink sink) { sink_ = std::move(sink); }

  void Print(std::string line);

  /// The latest lines, oldest first, without line breaks.
  const std::deque<std::string>& Lines() const { return lines_; }

  /// The latest lines, each ended by "\n".
  std::string Text() const;

 private:
  Sink sink_;
  std::deque<std::string> lines_;
};

}  // namespace orvenza
