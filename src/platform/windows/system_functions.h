#pragma once

#include <windows.h>

namespace orvenza {

/// A function that not every system has; null where it is missing.
template <typename Function>
Function FindFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryW(library);  // stays loaded: the program uses it anyway
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace orvenza
