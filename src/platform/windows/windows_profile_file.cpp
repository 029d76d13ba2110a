#include "platform/windows/windows_profile_file.h"

#include <windows.h>

#include "platform/system_error.h"
#include "platform/windows/code_page.h"
#include "platform/windows/windows_error.h"

namespace orvenza {
namespace {

/// What no value of a settings file is: tells a missing value from an empty one.
constexpr const char* kMissing = "\x01\x1A\x01";

constexpr std::size_t kFirstBuffer = 1024;
constexpr std::size_t kLargestBuffer = 1024 * 1024;

}  // namespace

std::string WindowsProfileFile::Read(const std::string& path, const std::string& section,
                                     const std::string& key, const std::string& fallback) const {
  try {
    const std::string file = CodePagePath(path);
    std::string value;
    std::size_t length = 0;
    // A result that fills the buffer may have been cut.
    for (std::size_t size = kFirstBuffer; size <= kLargestBuffer && length + 1 >= value.size(); size *= 2) {
      value.resize(size);
      length = ::GetPrivateProfileStringA(section.c_str(), key.c_str(), kMissing, value.data(),
                                          static_cast<DWORD>(size), file.c_str());
    }
    value.resize(length);
    return value == kMissing ? fallback : value;
  } catch (const SystemError&) {
    return fallback;
  }
}

void WindowsProfileFile::Write(const std::string& path, const std::string& section, const std::string& key,
                               const std::string& value) {
  const std::string file = CodePagePath(path);
  const std::string line = value.substr(0, value.find_first_of("\r\n"));
  if (!::WritePrivateProfileStringA(section.c_str(), key.c_str(), line.c_str(), file.c_str())) {
    ThrowFileError(::GetLastError(), path);
  }
}

}  // namespace orvenza
