#include "ui/terminal/text_box.h"

#include <algorithm>

#include "core/text.h"

namespace orvenza {
namespace {

constexpr std::size_t kColumnGap = 3;

/// `text` without control characters for the terminal: it may quote a ticket line.
std::string Harmless(std::string_view text) {
  std::string harmless;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool upperControl =
        byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    const bool control = byte < ' ' || byte == 127 || upperControl;
    harmless += control ? ' ' : text[i];
    if (upperControl) ++i;
  }
  return harmless;
}

/// Length in bytes of the first row of `line`, which is longer than `width` characters.
std::size_t RowEnd(const std::string& line, std::size_t width) {
  const std::size_t blank = FirstCharacters(line, width + 1).rfind(' ');
  const bool atBlank = blank != std::string::npos && line.find_first_not_of(' ') < blank;
  return atBlank ? blank : FirstCharacters(line, width).size();
}

void WrapLine(std::string line, std::size_t width, std::vector<std::string>& rows) {
  while (CountCharacters(line) > width) {
    const std::size_t end = RowEnd(line, width);
    rows.push_back(line.substr(0, line.find_last_not_of(' ', end - 1) + 1));
    line.erase(0, std::min(line.find_first_not_of(' ', end), line.size()));
  }
  rows.push_back(line);
}

}  // namespace

std::vector<std::string> WrapText(std::string_view text, std::size_t width) {
  std::vector<std::string> rows;
  while (true) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    WrapLine(Harmless(line), width, rows);
    if (end == std::string_view::npos) return rows;
    text.remove_prefix(end + 1);
  }
}

TextBox::TextBox(std::string_view heading, std::size_t width)
    : textWidth_(std::clamp(width, kLeastWidth, kWidth) - kFrame) {
  AddRule();
  AddText(heading);
  AddRule();
}

void TextBox::AddRule() { rows_ += Rule(); }

void TextBox::AddText(std::string_view text, bool centred) {
  for (const std::string& row : WrapText(text, textWidth_)) {
    AddRow(row, centred ? (textWidth_ - CountCharacters(row)) / 2 : 0);
  }
}

void TextBox::AddColumns(const std::vector<std::string>& items) {
  std::size_t width = 0;
  for (const std::string& item : items) width = std::max(width, CountCharacters(item) + kColumnGap);
  std::string row;
  for (const std::string& item : items) {
    if (!row.empty() && CountCharacters(row) + CountCharacters(item) > textWidth_) {
      AddText(Trim(row));
      row.clear();
    }
    row.append(item).append(width - CountCharacters(item), ' ');
  }
  AddText(Trim(row));
}

std::string TextBox::Draw() const { return rows_ + Rule(); }

std::string TextBox::Rule() const { return "+" + std::string(textWidth_ + 2, '-') + "+\n"; }

void TextBox::AddRow(std::string_view text, std::size_t indent) {
  const std::size_t used = std::min(indent + CountCharacters(text), textWidth_);
  rows_.append("| ").append(indent, ' ').append(text).append(textWidth_ - used, ' ').append(" |\n");
}

}  // namespace orvenza
