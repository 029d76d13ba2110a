#include "platform/windows/windows_paths.h"

#include "platform/system_error.h"
#include "platform/windows/wide.h"

namespace orvenza {
namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

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

std::wstring NativePath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    throw SystemError(error_number::kBadFileName, path.c_str());
  }
  return ToWide(path);
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
