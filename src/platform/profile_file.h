#pragma once

#include <string>

namespace orvenza {

/// Settings files with sections and keys, with the meaning of the operating system's private-profile
/// functions: names compare without regard to letter case, blanks around names and values do not count, a
/// pair of quotes around a value is dropped. Texts are UTF-8.
class ProfileFile {
 public:
  virtual ~ProfileFile() = default;

  /// The value of `key` in `section`, or `fallback` when the file, the section or the key is missing.
  /// Never fails: an unreadable file counts as missing.
  virtual std::string Read(const std::string& path, const std::string& section, const std::string& key,
                           const std::string& fallback) const = 0;

  /// Sets one value; the rest of the file stays as it is. An empty key makes a line that begins with "=".
  /// Throws SystemError.
  virtual void Write(const std::string& path, const std::string& section, const std::string& key,
                     const std::string& value) = 0;
};

}  // namespace orvenza
