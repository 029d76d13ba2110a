#pragma once

#include <windows.h>

namespace orvenza {

/// A library of Windows: the one already loaded, otherwise the one in the system's folder. No other folder is
/// searched. The library stays loaded. Null if the system has none of this name.
HMODULE SystemLibrary(const wchar_t* name);

/// A function that some versions of Windows lack; null where it is missing.
template <typename Function>
Function FindFunction(const wchar_t* library, const char* name) {
  const HMODULE module = SystemLibrary(library);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace orvenza
