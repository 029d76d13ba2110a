#include "platform/windows/system_functions.h"

#include <string>

namespace orvenza {

HMODULE SystemLibrary(const wchar_t* name) {
  // For the common controls, the loaded version differs from the one in the system's folder.
  if (const HMODULE loaded = ::GetModuleHandleW(name)) return loaded;
  wchar_t folder[MAX_PATH];
  const UINT length = ::GetSystemDirectoryW(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return nullptr;
  const std::wstring path = std::wstring(folder, length) + L"\\" + name;
  // The library's own dependencies come from the system's folder, too.
  return ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace orvenza
