#pragma once

#include <cstddef>

#include "platform/files.h"
#include "platform/profile_file.h"

namespace orvenza {

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
