#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_file.h"

namespace orvenza {

/// A line of a settings file that says something, or means to.
struct IniLine {
  enum class Kind { kSection, kEntry, kMeaningless };
  std::size_t number = 0;  ///< From 1.
  Kind kind = Kind::kMeaningless;
  std::string name;  ///< Of the section or the key; empty for a meaningless line.
};

/// Whether two names of sections or keys are the same: the case of the letters a to z does not count.
bool IsSameIniName(std::string_view a, std::string_view b);

/// The bytes of a settings file, and what they say. If a section or a key appears twice, the first one
/// counts; a line that begins with ";" is a comment; lines that are neither a "[section]" nor a "key=value"
/// mean nothing. A byte-order mark of UTF-8 is passed over; a file that begins with one of UTF-16 is read,
/// and stays, in that.
class IniText : public ProfileContent {
 public:
  explicit IniText(std::string_view bytes = {});

  std::optional<std::string> Value(const std::string& section, const std::string& key) const override;

  /// Replaces or adds one line, ended by CR LF, and keeps all others. `value` ends before its first line
  /// break or NUL.
  void Set(const std::string& section, const std::string& key, std::string_view value);

  /// The lines, comments and empty ones left out.
  std::vector<IniLine> Lines() const;

  /// Whether there is a character with the code 0, as in a damaged file.
  bool HoldsNul() const { return text_.find('\0') != std::string::npos; }

  std::string Bytes() const;

 private:
  enum class Form { kBytes, kUtf16, kUtf16BigEndian };

  Form form_ = Form::kBytes;
  std::string_view mark_;  ///< What the bytes began with.
  std::string text_;       ///< In UTF-8 where the bytes are UTF-16.
};

}  // namespace orvenza
