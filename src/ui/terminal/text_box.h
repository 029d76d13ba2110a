#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvenza {

/// `text` in lines of at most `width` characters, broken at blanks where there are any. Its own line ends
/// (with or without a carriage return) stay, other control characters become blanks.
std::vector<std::string> WrapText(std::string_view text, std::size_t width);

/// A dialog drawn with plain characters, built from top to bottom.
class TextBox {
 public:
  /// Characters of a row, frame included, and what is left for text.
  static constexpr std::size_t kWidth = 72;
  static constexpr std::size_t kTextWidth = kWidth - 4;

  /// Starts with the frame's top and `heading`.
  explicit TextBox(std::string_view heading);

  /// Separates what follows.
  void AddRule();
  void AddText(std::string_view text, bool centred = false);
  /// `items` side by side in columns of the same width, on as many rows as they need.
  void AddColumns(const std::vector<std::string>& items);

  /// The rows so far and the frame's bottom, each with a line feed.
  std::string Draw() const;

 private:
  void AddRow(std::string_view text, std::size_t indent = 0);

  std::string rows_;
};

}  // namespace orvenza
