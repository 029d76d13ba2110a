#include "platform/posix/native_path.h"

#include <algorithm>

#include "platform/system_error.h"

namespace orvenza {
namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

}  // namespace

std::string MissingDrive(std::string_view path) {
  if (path.size() >= 2 && IsLetter(path[0]) && path[1] == ':') return std::string(path.substr(0, 2));
  // A native path may begin with "//": only "\\" names a server.
  if (path.size() < 3 || path.substr(0, 2) != "\\\\" || IsSeparator(path[2])) return {};
  const std::size_t share = path.find_first_of("\\/", 2);
  if (share == std::string_view::npos) return std::string(path);
  return std::string(path.substr(0, path.find_first_of("\\/", share + 1)));
}

std::string NativePath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    throw SystemError(error_number::kBadFileName, path.c_str());
  }
  if (!MissingDrive(path).empty()) throw SystemError(error_number::kPathNotFound, path);
  std::string native = path;
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

std::string NativeFolderPath(const std::string& path) {
  std::string native = NativePath(path);
  while (native.size() > 1 && native.back() == '/') native.pop_back();
  return native;
}

}  // namespace orvenza
