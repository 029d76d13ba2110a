#pragma once

#include <string>

namespace orvenza {

/// Where a program without a console of its own may write: its standard output where that leads somewhere,
/// else the console it was started from, which it then belongs to: closing that console ends the program. So
/// made only where there is something to show. Without either nothing is shown.
class ParentConsole {
 public:
  ParentConsole();

  /// False when nobody would see it.
  bool IsThere() const { return output_ != nullptr; }

  /// Writes UTF-8 `text`.
  void Write(const std::string& text) const;

 private:
  void* output_ = nullptr;
};

}  // namespace orvenza
