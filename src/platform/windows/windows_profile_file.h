#pragma once

#include "platform/profile_file.h"

namespace orvenza {

/// Settings files through the system's private-profile functions, which deal in bytes: values are written and
/// read as they stand, and end before their first line break. A file whose path the system's code page cannot
/// spell is reached by its short (8.3) path.
class WindowsProfileFile : public ProfileFile {
 public:
  std::string Read(const std::string& path, const std::string& section, const std::string& key,
                   const std::string& fallback) const override;
  void Write(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) override;
};

}  // namespace orvenza
