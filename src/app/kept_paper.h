#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "simulator/register_state.h"
#include "simulator/state_file.h"

namespace orvenza {

/// The paper file of a simulated register, and the state file beside it, with which the register goes on
/// after a restart of the program.
///
/// A command counts as executed once the state file is written. Only then its lines are appended to the paper
/// and shown; if the program is killed in between, the next start appends what is missing. A file that fails
/// is reported once, in a line in brackets among the paper.
class KeptPaper {
 public:
  using Show = std::function<void(const std::string& line)>;

  /// `path` is the paper file's, `name` what messages call it; `show` receives each printed line.
  KeptPaper(Files& files, std::string path, std::string name, Show show);

  /// The state that an earlier start has left; empty if there is none, or if it cannot be read, which is
  /// reported.
  std::optional<RegisterState> Remembered();

  /// A line that the current command prints.
  void Print(const std::string& line) { file_.printed.push_back(line); }

  /// Ends a command. A command that changed nothing writes nothing.
  void Keep(const RegisterState& state);

 private:
  void CompletePaper();
  void WriteState();
  /// The first `there` characters are on the paper already.
  void PutOnPaper(const std::string& line, std::size_t there = 0);
  std::uintmax_t PaperSize() const;
  std::string StatePath() const { return path_ + ".state"; }

  Files& files_;
  std::string path_;
  std::string name_;
  Show show_;
  StateFile file_;
  bool written_ = false;                 ///< The state file holds `file_.state`.
  std::vector<std::string> unfinished_;  ///< Printed by an earlier start, perhaps not yet on the paper.
  bool paperLossTold_ = false;
  bool stateLossTold_ = false;
};

}  // namespace orvenza
