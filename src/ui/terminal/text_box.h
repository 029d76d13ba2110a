#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvenza {

/// `text` in lines of at most `width` characters, wrapped at blanks where possible. Its own line breaks (with
/// or without a carriage return) are kept; other control characters become blanks.
std::vector<std::string> WrapText(std::string_view text, std::size_t width);

/// A dialog drawn with plain characters, built from top to bottom.
class TextBox {
 public:
  /// Maximum and minimum width of a row, frame included.
  static constexpr std::size_t kWidth = 72;
  static constexpr std::size_t kLeastWidth = 24;

  /// Starts with the frame's top and `heading`. Rows have `width` characters, within the limits above.
  explicit TextBox(std::string_view heading, std::size_t width = kWidth);

  /// Adds a separator line.
  void AddRule();
  void AddText(std::string_view text, bool centred = false);
  /// Lays `items` out in columns of equal width, on as many rows as needed.
  void AddColumns(const std::vector<std::string>& items);

  /// The rows so far and the frame's bottom, each ended by a line feed.
  std::string Draw() const;

 private:
  /// Characters of a row taken by the frame.
  static constexpr std::size_t kFrame = 4;

  std::string Rule() const;
  void AddRow(std::string_view text, std::size_t indent = 0);

  std::size_t textWidth_;
  std::string rows_;
};

}  // namespace orvenza
