#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_file.h"

namespace orvenza {

/// A line of a settings file, comments and blank lines aside.
struct IniLine {
  enum class Kind { kSection, kEntry, kMeaningless };
  std::size_t number = 0;  ///< Counted from 1.
  Kind kind = Kind::kMeaningless;
  std::string name;  ///< Name of the section or the key; empty for a meaningless line.
};

/// Whether two section or key names are equal, ignoring the case of the letters a to z.
bool IsSameIniName(std::string_view a, std::string_view b);

/// The bytes of a settings file and their meaning. If a section or a key appears twice, the first one counts.
/// A line that begins with ";" is a comment. Lines that are neither "[section]" nor "key=value" mean nothing.
/// A UTF-8 byte-order mark is skipped; a file with a UTF-16 mark is read and written in that encoding.
class IniText : public ProfileContent {
 public:
  explicit IniText(std::string_view bytes = {});
  IniText(const IniText&) = delete;
  IniText& operator=(const IniText&) = delete;

  std::optional<std::string> Value(const std::string& section, const std::string& key) const override;

  /// Replaces or adds one line, ended by CR LF, and keeps all others. `value` is cut at its first line break
  /// or NUL.
  void Set(const std::string& section, const std::string& key, std::string_view value);

  /// All lines except comments and blank ones.
  std::vector<IniLine> Lines() const;

  /// Whether the text contains a NUL, as in a damaged file.
  bool HoldsNul() const { return text_.find('\0') != std::string::npos; }

  std::string Bytes() const;

 private:
  enum class Form { kBytes, kUtf16, kUtf16BigEndian };
  struct IniEntry {
    std::ptrdiff_t section;  ///< Index into `sections_`.
    std::string_view key;
    std::string_view value;
  };

  void ListEntries();

  Form form_ = Form::kBytes;
  std::string_view mark_;  ///< The byte-order mark; may be empty.
  std::string text_;       ///< Converted to UTF-8 if the file is UTF-16.
  // Views of `text_`.
  std::vector<std::string_view> sections_;
  std::vector<IniEntry> entries_;
};

}  // namespace orvenza
