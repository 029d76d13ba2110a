#pragma once

#include <string>

namespace orvenza {

/// Output for a program without its own console: its standard output if redirected, otherwise the console
/// that started it. Attaching to that console means that closing it ends the program, so create the object
/// only to show something. Without either nothing is shown.
class ParentConsole {
 public:
  ParentConsole();

  /// False when output would not be seen.
  bool IsThere() const { return output_ != nullptr; }

  /// Writes UTF-8 text.
  void Write(const std::string& text) const;

 private:
  void* output_ = nullptr;
};

}  // namespace orvenza
