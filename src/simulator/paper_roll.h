#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>

namespace orvenza {

/// Characters on one line of the register's paper.
inline constexpr std::size_t kPaperColumns = 40;

/// The paper that comes out of the simulated register.
class PaperRoll {
 public:
  /// Lines that are remembered; older ones are forgotten, so that days of printing do not fill the memory.
  static constexpr std::size_t kLinesKept = 10000;

  using Sink = std::function<void(const std::string& line)>;

  /// Who is handed each line as it is printed (a terminal, a file). Null: nobody.
  void SetSink(Sink sink) { sink_ = std::move(sink); }

  void Print(std::string line);

  /// The remembered lines, oldest first, without line ends.
  const std::deque<std::string>& Lines() const { return lines_; }

  /// The remembered lines, each closed by "\n".
  std::string Text() const;

 private:
  Sink sink_;
  std::deque<std::string> lines_;
};

}  // namespace orvenza
