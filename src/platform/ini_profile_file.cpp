#include "platform/ini_profile_file.h"

#include "platform/ini_text.h"
#include "platform/system_error.h"

namespace orvenza {

std::unique_ptr<ProfileContent> IniProfileFile::Load(const std::string& path) const {
  return std::make_unique<IniText>(files_.Exists(path) ? BytesOf(path) : std::string());
}

void IniProfileFile::Write(const std::string& path, const std::string& section, const std::string& key,
                           const std::string& value) {
  IniText text(BytesOf(path));
  text.Set(section, key, value);
  files_.Write(path, text.Bytes());
}

std::string IniProfileFile::BytesOf(const std::string& path) const {
  std::string bytes = ReadWhole(files_, path, kLargestFile + 1);
  if (bytes.size() > kLargestFile) throw SystemError(error_number::kPathFileAccess, path);
  return bytes;
}

}  // namespace orvenza
