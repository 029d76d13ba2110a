#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/profile_file.h"

namespace orvenza {

/// Settings files, read and written through IniText.
class IniProfileFile : public ProfileFile {
 public:
  /// A larger file is not a settings file: reading or writing it throws SystemError 75.
  static constexpr std::size_t kLargestFile = 1024 * 1024;

  explicit IniProfileFile(Files& files) : files_(files) {}

  std::unique_ptr<ProfileContent> Load(const std::string& path) const override;
  void Write(const std::string& path, const std::string& section, const std::string& key,
             const std::string& value) override;

 private:
  std::string BytesOf(const std::string& path) const;

  Files& files_;
};

}  // namespace orvenza
