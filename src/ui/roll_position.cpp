#include "ui/roll_position.h"

#include <algorithm>

namespace orvenza {

void RollPosition::Follow(std::size_t printed, std::size_t kept, std::size_t rows) {
  const std::ptrdiff_t droppedBefore = printed_ - kept_;
  printed_ = static_cast<std::ptrdiff_t>(printed);
  kept_ = static_cast<std::ptrdiff_t>(kept);
  rows_ = static_cast<std::ptrdiff_t>(rows);
  first_ -= printed_ - kept_ - droppedBefore;
  if (atEnd_) first_ = Last();
  ScrollBy(0);
}

void RollPosition::ScrollBy(std::ptrdiff_t lines) {
  first_ = std::clamp<std::ptrdiff_t>(first_ + lines, 0, Last());
  atEnd_ = first_ == Last();
}

/// The first line of the view at the end of the roll.
std::ptrdiff_t RollPosition::Last() const { return std::max<std::ptrdiff_t>(kept_ - rows_, 0); }

}  // namespace orvenza
