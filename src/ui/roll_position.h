#pragma once

#include <cstddef>

namespace orvenza {

/// Which lines of a growing roll are in view. The view stays at the end of the roll until it is scrolled
/// back; then it stays at its lines, whatever is printed below them, until they are no longer kept.
class RollPosition {
 public:
  /// To be called after the roll or the view has changed: `printed` lines so far, of which the last `kept`
  /// are in the roll, and `rows` lines that fit the view, at least 1.
  void Follow(std::size_t printed, std::size_t kept, std::size_t rows);

  /// Scrolls towards the end, or back if `lines` is negative.
  void ScrollBy(std::ptrdiff_t lines);

  /// The index in the roll of the first line in view.
  std::size_t First() const { return static_cast<std::size_t>(first_); }
  std::size_t Kept() const { return static_cast<std::size_t>(kept_); }
  std::size_t Rows() const { return static_cast<std::size_t>(rows_); }

 private:
  std::ptrdiff_t Last() const;

  std::ptrdiff_t printed_ = 0;
  std::ptrdiff_t kept_ = 0;
  std::ptrdiff_t rows_ = 1;
  std::ptrdiff_t first_ = 0;
  bool atEnd_ = true;
};

}  // namespace orvenza
