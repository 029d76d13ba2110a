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
  /// Most and fewest characters of a row, frame included.
  static constexpr std::size_t kWidth = 72;
  static constexpr std::size_t kLeastWidth = 24;

  /// Starts with the frame's top and `heading`. Rows have `width` characters, within the limits above.
  explicit TextBox(std::string_view heading, std::size_t width = kWidth);

  /// Separates what follows.
  void AddRule();
  void AddText(std::string_view text, bool centred = false);
  /// `items` side by side in columns of the same width, on as many rows as they need.
  void AddColumns(const std::vector<std::string>& items);

  /// The rows so far and the frame's bottom, each with a line feed.
  std::string Draw() const;

 private:
  /// Characters of a row that are no text.
  static constexpr std::size_t kFrame = 4;

  std::string Rule() const;
  void AddRow(std::string_view text, std::size_t indent = 0);

  std::size_t textWidth_;
  std::string rows_;
};

}  // namespace orvenza
