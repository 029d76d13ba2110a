#pragma once

#include <memory>
#include <optional>
#include <string>

namespace orvenza {

/// One value of a settings file, or one that it is to have.
struct ProfileValue {
  std::string section;
  std::string key;
  std::string text;
};

/// What a settings file said when it was read. Names compare without regard to letter case, blanks around
/// names and values do not count, a pair of quotes around a value is dropped. Texts are UTF-8, or bytes as
/// they stand in the file where they are not.
class ProfileContent {
 public:
  virtual ~ProfileContent() = default;

  /// Nothing when the section or the key is missing.
  virtual std::optional<std::string> Value(const std::string& section, const std::string& key) const = 0;
};

/// Settings files with sections and keys.
class ProfileFile {
 public:
  virtual ~ProfileFile() = default;

  /// Reads a file as one whole; one that is missing says nothing. Throws SystemError when it cannot be read.
  virtual std::unique_ptr<ProfileContent> Load(const std::string& path) const = 0;

  /// Sets one value of an existing file; the rest of it stays as it is. An empty key makes a line that begins
  /// with "=". Throws SystemError; the file is then as it was.
  virtual void Write(const std::string& path, const std::string& section, const std::string& key,
                     const std::string& value) = 0;
};

}  // namespace orvenza
