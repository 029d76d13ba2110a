#include "platform/windows/system_functions.h"

#include <string>

namespace orvenza {

HMODULE SystemLibrary(const wchar_t* name) {
  // Of the common controls the program has another version than the one in the folder.
  if (const HMODULE loaded = ::GetModuleHandleW(name)) return loaded;
  wchar_t folder[MAX_PATH];
  const UINT length = ::GetSystemDirectoryW(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return nullptr;
  const std::wstring path = std::wstring(folder, length) + L"\\" + name;
  // What the library itself loads comes from there as well.
  return ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace orvenza
