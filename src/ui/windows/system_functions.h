#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace orvenza {

/// A function that not every system has; null where it is missing.
template <typename Function>
Function FindFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryW(library);  // stays loaded: the program uses it anyway
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

/// UTF-8 text for functions that take the system's code page; characters it lacks become "?".
std::string ToAnsi(std::string_view text);

}  // namespace orvenza
