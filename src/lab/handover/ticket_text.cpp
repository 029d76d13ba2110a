#include "lab/handover/ticket_text.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include "core/text.h"
#include "lab/check/file_check.h"
#include "tickets/line_reader.h"

namespace orvenza {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr char kUsual = 127;
constexpr char kReadable = ';';

std::vector<std::string> LinesOf(std::string_view text) {
  LineReader reader(std::make_unique<ViewBytes>(text));
  std::vector<std::string> lines;
  for (std::string line; reader.ReadLine(line);) lines.push_back(line);
  return lines;
}

std::string NameOf(char separator) {
  return separator == kUsual ? "the character 127" : std::string("'") + separator + "'";
}

/// What closes the record type of a line; empty if none of the possible separators does.
std::optional<char> SeparatorOf(std::string_view line, char expected) {
  const std::string_view text = Trim(line);
  const std::size_t end = text.find_first_not_of("0123456789");
  if (end == std::string_view::npos) return std::nullopt;
  const char found = text[end];
  if (found != kUsual && found != kReadable && found != expected) return std::nullopt;
  return found;
}

char RecognisedSeparator(const std::vector<std::string>& lines, char expected) {
  std::optional<char> agreed;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::optional<char> found = SeparatorOf(lines[i], expected);
    if (!found) continue;
    if (agreed && *agreed != *found) {
      throw std::runtime_error("line " + std::to_string(i + 1) + " has " + NameOf(*found) +
                               " behind its record type, an earlier line has " + NameOf(*agreed) +
                               "; name the separator with --separator");
    }
    agreed = found;
  }
  if (agreed) return *agreed;
  if (std::ranges::all_of(lines, [](const std::string& line) { return Trim(line).empty(); })) {
    throw std::runtime_error("it is empty");
  }
  throw std::runtime_error("no line begins with a record type and a separator (" + NameOf(kUsual) + " or " +
                           NameOf(kReadable) + "); name the separator with --separator");
}

void ChangeSeparator(std::vector<std::string>& lines, char from, char to) {
  if (from == to) return;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].find(to) != std::string::npos) {
      throw std::runtime_error("line " + std::to_string(i + 1) + " contains " + NameOf(to) +
                               ", which is the separator of the settings");
    }
    std::replace(lines[i].begin(), lines[i].end(), from, to);
  }
}

void ChangeEncoding(std::vector<std::string>& lines) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto bytes = ToWindows1252(lines[i]);
    if (!bytes) {
      throw std::runtime_error("line " + std::to_string(i + 1) +
                               " contains a character that does not exist in Windows-1252");
    }
    lines[i] = *bytes;
  }
}

}  // namespace

std::string TicketText(std::string_view file, char separator, std::optional<char> written) {
  if (IsUtf16(file.substr(0, file.find('\n')))) {
    throw std::runtime_error("it is UTF-16, two bytes a character; save it as UTF-8");
  }
  const bool isUtf8 = ToUtf8(file) == file;
  if (file.starts_with(kUtf8Mark)) file.remove_prefix(kUtf8Mark.size());
  std::vector<std::string> lines = LinesOf(file);
  ChangeSeparator(lines, written ? *written : RecognisedSeparator(lines, separator), separator);
  if (isUtf8) ChangeEncoding(lines);
  std::string text;
  for (const std::string& line : lines) text.append(line).append(kLineBreak);
  return text;
}

}  // namespace orvenza
