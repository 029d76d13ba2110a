#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/profile_file.h"

namespace orvenza {

/// A line of a settings file that says something, or means to.
struct IniLine {
  enum class Kind { kSection, kEntry, kMeaningless };
  std::size_t number = 0;  ///< From 1.
  Kind kind = Kind::kMeaningless;
  std::string name;  ///< Of the section or the key; empty for a meaningless line.
};

/// The lines of a settings file's `text`, comments and empty ones left out. A byte-order mark of UTF-8 is
/// passed over.
std::vector<IniLine> ListIniLines(std::string_view text);

/// Whether two names of sections or keys are the same: the case of the letters a to z does not count.
bool IsSameIniName(std::string_view a, std::string_view b);

/// Settings files on systems without the profile functions. Of sections and keys of the same name the first
/// counts; a line that begins with ";" is a comment; lines that are neither a "[section]" nor a "key=value"
/// mean nothing. Writing replaces or adds one line, ended by CR LF, and keeps the bytes of all others, with a
/// byte-order mark of UTF-8. Values end before their first line break or NUL.
class IniProfileFile : public ProfileFile {
 public:
  /// A larger file is no settings file: it reads as missing, and writing to it throws SystemError 75.
  static constexpr std::size_t kLargestFile = 1024 * 1024;

  explicit IniProfileFile(Files& files) : files_(files) {}

  std::string Read(const std::string& path, const std::string& section, const std::string& key,
                   const std::string& fallback) const override;
  void Write(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) override;

 private:
  std::string Load(const std::string& path) const;

  Files& files_;
};

}  // namespace orvenza
