#pragma once

#include <windows.h>

namespace orvenza {

/// A library of Windows: the one that the program has already, else the one in the system's folder. It is
/// never looked for elsewhere, and stays loaded. Null where the system has none of this name.
HMODULE SystemLibrary(const wchar_t* name);

/// A function that not every system has; null where it is missing.
template <typename Function>
Function FindFunction(const wchar_t* library, const char* name) {
  const HMODULE module = SystemLibrary(library);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace orvenza
