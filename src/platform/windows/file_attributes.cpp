#include "platform/windows/file_attributes.h"

#include <windows.h>

#include "platform/system_error.h"
#include "platform/windows/windows_error.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

std::optional<std::wstring> NativeIfAny(const std::string& path, bool asFolder) {
  try {
    return asFolder ? NativeFolderPath(path) : NativePath(path);
  } catch (const SystemError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<unsigned long> AttributesIfThere(const std::string& path, bool asFolder) {
  const auto native = NativeIfAny(path, asFolder);
  if (!native) return std::nullopt;
  const DWORD attributes = ::GetFileAttributesW(native->c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) return attributes;
  const DWORD code = ::GetLastError();
  if (MeansMissing(code)) return std::nullopt;
  ThrowFileError(code, path);
}

}  // namespace orvenza
