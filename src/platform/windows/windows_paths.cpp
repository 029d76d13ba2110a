#include "platform/windows/windows_paths.h"

#include <windows.h>

#include "platform/system_error.h"
#include "platform/windows/wide.h"

namespace orvenza {
namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

/// From this length on, in UTF-16 units, the system refuses a folder's plain path; the limit of files is
/// slightly higher.
constexpr std::size_t kPlainLimit = 248;
constexpr std::size_t kLongestPath = 32768;

/// The system does not normalise the unlimited form, so the path is normalised first.
std::wstring Unlimited(const std::wstring& path) {
  std::wstring full(kLongestPath, L'\0');
  const DWORD size = static_cast<DWORD>(full.size());
  const DWORD length = ::GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
  if (length == 0 || length >= size) return path;
  full.resize(length);
  const bool isSystemForm = full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\");
  if (isSystemForm) return full;
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

}  // namespace

std::string DriveIn(std::string_view path) {
  if (path.size() >= 2 && IsLetter(path[0]) && path[1] == ':') return std::string(path.substr(0, 2));
  const bool server =
      path.size() >= 3 && IsSeparator(path[0]) && IsSeparator(path[1]) && !IsSeparator(path[2]);
  if (!server) return {};
  const std::size_t share = path.find_first_of("\\/", 2);
  if (share == std::string_view::npos) return std::string(path);
  return std::string(path.substr(0, path.find_first_of("\\/", share + 1)));
}

std::wstring PlainPath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    throw SystemError(error_number::kBadFileName, path.c_str());
  }
  return ToWide(path);
}

std::wstring NativePath(const std::string& path) {
  const std::wstring plain = PlainPath(path);
  return plain.size() < kPlainLimit ? plain : Unlimited(plain);
}

std::wstring NativeFolderPath(const std::string& path) {
  std::wstring native = NativePath(path);
  const auto ends = [&native](wchar_t c) { return native.back() == c; };
  while (native.size() > 1 && (ends(L'\\') || ends(L'/'))) {
    if (native[native.size() - 2] == L':') break;
    native.pop_back();
  }
  return native;
}

}  // namespace orvenza
