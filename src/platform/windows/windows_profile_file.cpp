#include "platform/windows/windows_profile_file.h"

#include <windows.h>

#include <optional>

#include "platform/system_error.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_error.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

/// What no value of a settings file is: tells a missing value from an empty one.
constexpr const char* kMissing = "\x01\x1A\x01";

constexpr std::size_t kFirstBuffer = 1024;
constexpr std::size_t kLargestBuffer = 1024 * 1024;

/// Nothing where the code page lacks a character of `wide`.
std::optional<std::string> ToCodePage(const std::wstring& wide) {
  if (wide.empty()) return "";
  const int length = static_cast<int>(wide.size());
  std::string bytes(wide.size() * 4, '\0');
  BOOL lost = FALSE;
  const bool isUtf8 = ::GetACP() == CP_UTF8;  // Refuses the question whether something was lost.
  const int count =
      ::WideCharToMultiByte(CP_ACP, isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS, wide.data(), length, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, isUtf8 ? nullptr : &lost);
  if (count <= 0 || lost) return {};
  bytes.resize(static_cast<std::size_t>(count));
  return bytes;
}

/// `folder`, which exists, in its short (8.3) spelling; empty where it has none.
std::wstring ShortSpelling(const std::wstring& folder) {
  std::wstring spelling(MAX_PATH, L'\0');
  const DWORD length = ::GetShortPathNameW(folder.c_str(), spelling.data(), MAX_PATH);
  spelling.resize(length < MAX_PATH ? length : 0);
  return spelling;
}

/// The path in the code page; where that lacks a character, with the folder in its short spelling.
std::string ProfilePath(const std::string& path) {
  // The profile functions take no other form of a long path.
  const std::wstring native = PlainPath(path);
  if (const auto plain = ToCodePage(native)) return *plain;
  const std::size_t nameAt = native.find_last_of(L"\\/") + 1;  // npos + 1 is 0.
  const std::wstring folder = ShortSpelling(native.substr(0, nameAt));
  const auto bytes = ToCodePage(folder + native.substr(nameAt));
  if (folder.empty() || !bytes) throw SystemError(error_number::kBadFileName, path);
  return *bytes;
}

}  // namespace

std::string WindowsProfileFile::Read(const std::string& path, const std::string& section,
                                     const std::string& key, const std::string& fallback) const {
  try {
    const std::string file = ProfilePath(path);
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
  const std::string file = ProfilePath(path);
  const std::string line = value.substr(0, value.find_first_of("\r\n"));
  if (!::WritePrivateProfileStringA(section.c_str(), key.c_str(), line.c_str(), file.c_str())) {
    ThrowFileError(::GetLastError(), path);
  }
}

}  // namespace orvenza
