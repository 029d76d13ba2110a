#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvenza {

/// Random numbers that are the same on every system for the same seed.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  /// A number from 0 to `count` - 1; `count` is at least 1.
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(Next() % count); }

  [[nodiscard]] bool Chance(std::size_t percent) { return Below(100) < percent; }

  template <typename T>
  const T& OneOf(const std::vector<T>& list) {
    return list[Below(list.size())];
  }

 private:
  /// SplitMix64.
  std::uint64_t Next() {
    std::uint64_t mixed = state_ += 0x9e3779b97f4a7c15;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
    return mixed ^ (mixed >> 31);
  }

  std::uint64_t state_;
};

}  // namespace orvenza
