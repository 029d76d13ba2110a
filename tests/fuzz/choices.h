#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

namespace orvenza::fuzz {

/// Reads an input as a series of choices, one byte each, and a text. After the end of the input every choice
/// is the first one.
class Choices {
 public:
  explicit Choices(std::string_view input) : rest_(input) {}

  bool AtEnd() const { return rest_.empty(); }

  /// A number below `count`, at most 256.
  std::size_t Below(std::size_t count) {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte % count;
  }

  bool Yes() { return Below(2) == 1; }

  /// An element of `list`.
  template <typename List>
  const auto& Of(const List& list) {
    return std::begin(list)[static_cast<std::ptrdiff_t>(Below(std::size(list)))];
  }

  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

}  // namespace orvenza::fuzz
