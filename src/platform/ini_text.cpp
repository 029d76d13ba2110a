#include "platform/ini_text.h"

#include <algorithm>
#include <iterator>

#include "platform/utf16.h"

namespace orvenza {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF";
constexpr std::string_view kLineEnd = "\r\n";

struct Entry {
  std::string_view name;
  std::string_view value;
};

/// The lines [header, end) of the first section with a given name. `key` is the line of the entry, if found.
struct Place {
  std::size_t header = 0;
  std::size_t end = 0;
  std::optional<std::size_t> key;
};

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool EndsLine(char c) { return c == '\r' || c == '\n'; }

/// The lines of `text`, each with its line break (CR LF, LF or CR).
std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  lines.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
  while (!text.empty()) {
    const auto end = std::find_if(text.begin(), text.end() - 1, EndsLine);
    auto length = static_cast<std::size_t>(end - text.begin()) + 1;
    if (text[length - 1] == '\r' && length < text.size() && text[length] == '\n') ++length;
    lines.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return lines;
}

/// The name in a section line, even without the closing "]".
std::optional<std::string_view> SectionName(std::string_view line) {
  line = TrimBlanks(line);
  if (!line.starts_with('[')) return {};
  return TrimBlanks(line.substr(1, line.find(']') - 1));
}

std::optional<Entry> ParseEntry(std::string_view line) {
  line = TrimBlanks(line);
  const std::size_t equals = line.find('=');
  if (line.starts_with(';') || equals == std::string_view::npos) return {};
  return Entry{TrimBlanks(line.substr(0, equals)), TrimBlanks(line.substr(equals + 1))};
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

/// Finds `section` and, inside it, `key`.
std::optional<Place> Find(const std::vector<std::string_view>& lines, std::string_view section,
                          std::string_view key) {
  const auto isWanted = [&](std::string_view line) {
    const auto name = SectionName(line);
    return name && IsSameIniName(*name, TrimBlanks(section));
  };
  const auto header = std::find_if(lines.begin(), lines.end(), isWanted);
  if (header == lines.end()) return {};
  Place place;
  place.header = static_cast<std::size_t>(header - lines.begin());
  for (place.end = place.header + 1; place.end < lines.size(); ++place.end) {
    if (SectionName(lines[place.end])) break;
    const auto entry = ParseEntry(lines[place.end]);
    if (!place.key && entry && IsSameIniName(entry->name, TrimBlanks(key))) place.key = place.end;
  }
  return place;
}

/// Index after the section's last non-blank line, where a new key is inserted.
std::size_t EndOfContent(const std::vector<std::string_view>& lines, const Place& place) {
  std::size_t end = place.end;
  while (end > place.header + 1 && TrimBlanks(lines[end - 1]).empty()) --end;
  return end;
}

/// `lines` with [first, last) replaced by `inserted`, which starts on a new line.
std::string Join(const std::vector<std::string_view>& lines, std::size_t first, std::size_t last,
                 std::string_view inserted) {
  std::string text;
  for (std::size_t i = 0; i < first; ++i) text.append(lines[i]);
  if (!text.empty() && text.back() != '\n' && text.back() != '\r') text.append(kLineEnd);
  text.append(inserted);
  for (std::size_t i = last; i < lines.size(); ++i) text.append(lines[i]);
  return text;
}

std::string KeyLine(std::string_view name, std::string_view value) {
  value = value.substr(0, value.find_first_of(std::string_view("\r\n\0", 3)));
  return std::string(name).append("=").append(value).append(kLineEnd);
}

std::string WithValue(std::string_view text, std::string_view section, std::string_view key,
                      std::string_view value) {
  const auto lines = SplitLines(text);
  const auto place = Find(lines, section, key);
  const std::string_view newName = TrimBlanks(key);
  if (!place) {
    const std::string header = "[" + std::string(TrimBlanks(section)) + "]";
    return Join(lines, lines.size(), lines.size(), header + std::string(kLineEnd) + KeyLine(newName, value));
  }
  if (place->key) {
    // Keeps the spelling in the file, whose letter case may differ.
    const std::string_view spelling = ParseEntry(lines[*place->key])->name;
    return Join(lines, *place->key, *place->key + 1, KeyLine(spelling, value));
  }
  const std::size_t end = EndOfContent(lines, *place);
  return Join(lines, end, end, KeyLine(newName, value));
}

}  // namespace

bool IsSameIniName(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

IniText::IniText(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Mark)) {
    form_ = Form::kUtf16;
    mark_ = kUtf16Mark;
  } else if (bytes.starts_with(kUtf16BigEndianMark)) {
    form_ = Form::kUtf16BigEndian;
    mark_ = kUtf16BigEndianMark;
  } else if (bytes.starts_with(kUtf8Mark)) {
    mark_ = kUtf8Mark;
  }
  bytes.remove_prefix(mark_.size());
  text_ = form_ == Form::kBytes ? std::string(bytes) : Utf8FromUtf16(bytes, form_ == Form::kUtf16BigEndian);
  ListEntries();
}

std::optional<std::string> IniText::Value(const std::string& section, const std::string& key) const {
  const std::string_view wanted = TrimBlanks(section);
  const auto place = std::find_if(sections_.begin(), sections_.end(),
                                  [&](std::string_view name) { return IsSameIniName(name, wanted); });
  const std::string_view name = TrimBlanks(key);
  const auto isWanted = [&, index = place - sections_.begin()](const IniEntry& entry) {
    return entry.section == index && IsSameIniName(entry.key, name);
  };
  const auto found = std::find_if(entries_.begin(), entries_.end(), isWanted);
  if (found == entries_.end()) return std::nullopt;
  return std::string(found->value);
}

void IniText::Set(const std::string& section, const std::string& key, std::string_view value) {
  text_ = WithValue(text_, section, key, value);
  ListEntries();
}

void IniText::ListEntries() {
  const auto lines = SplitLines(text_);
  sections_.clear();
  entries_.clear();
  entries_.reserve(lines.size());
  for (const std::string_view line : lines) {
    if (const auto section = SectionName(line)) {
      sections_.push_back(*section);
    } else if (const auto entry = ParseEntry(line); entry && !sections_.empty()) {
      entries_.push_back({std::ssize(sections_) - 1, entry->name, WithoutQuotes(entry->value)});
    }
  }
}

std::vector<IniLine> IniText::Lines() const {
  std::vector<IniLine> listed;
  std::size_t number = 0;
  for (const std::string_view line : SplitLines(text_)) {
    ++number;
    const std::string_view content = TrimBlanks(line);
    if (content.empty() || content.starts_with(';')) continue;
    const auto section = SectionName(line);
    const auto entry = ParseEntry(line);
    if (section) {
      listed.push_back({number, IniLine::Kind::kSection, std::string(*section)});
    } else if (entry) {
      listed.push_back({number, IniLine::Kind::kEntry, std::string(entry->name)});
    } else {
      listed.push_back({number, IniLine::Kind::kMeaningless, {}});
    }
  }
  return listed;
}

std::string IniText::Bytes() const {
  const std::string mark(mark_);
  return mark + (form_ == Form::kBytes ? text_ : Utf16FromUtf8(text_, form_ == Form::kUtf16BigEndian));
}

}  // namespace orvenza
