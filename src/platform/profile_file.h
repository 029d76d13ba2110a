#pragma once

#include <memory>
#include <optional>
#include <string>

namespace orvenza {

/// One value of a settings file, present or to be written.
struct ProfileValue {
  std::string section;
  std::string key;
  std::string text;
};

/// The content of a settings file when it was read. Names are compared ignoring letter case. Blanks around
/// names and values are ignored, and so is a pair of quotes around a value. Texts are UTF-8; bytes that are
/// not valid UTF-8 are kept as they are.
class ProfileContent {
 public:
  virtual ~ProfileContent() = default;

  /// Empty when the section or the key is missing.
  virtual std::optional<std::string> Value(const std::string& section, const std::string& key) const = 0;
};

/// Settings files with sections and keys.
class ProfileFile {
 public:
  virtual ~ProfileFile() = default;

  /// Reads a whole file; a missing file has no values. Throws SystemError when it cannot be read.
  virtual std::unique_ptr<ProfileContent> Load(const std::string& path) const = 0;

  /// Sets one value of an existing file and keeps the rest. An empty key makes a line that begins with "=".
  /// If it throws a SystemError, the file is unchanged.
  virtual void Write(const std::string& path, const std::string& section, const std::string& key,
                     const std::string& value) = 0;
};

}  // namespace orvenza
