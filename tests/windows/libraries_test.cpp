// The libraries that the programs import. Windows searches the program's folder first, where anyone with
// write access to the shop's folder could plant a library.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "windows/till.h"

namespace orvenza::test {
namespace {

/// Libraries for which Windows never searches the program's folder: known DLLs, or named by the manifest.
const std::set<std::string> kSafe{"advapi32.dll", "comctl32.dll", "gdi32.dll",   "kernel32.dll", "msvcrt.dll",
                                  "ole32.dll",    "oleaut32.dll", "shell32.dll", "user32.dll"};

std::set<std::string> ImportsOf(const wchar_t* name) {
  const HMODULE image = LoadLibraryExW(ProgramPath(name).c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
  if (image == nullptr) return {};
  const auto at = [base = reinterpret_cast<const char*>(image)](auto offset) { return base + offset; };
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(at(dos->e_lfanew));
  const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  std::set<std::string> names;
  for (const auto* entry = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(at(imports)); entry->Name != 0;
       ++entry) {
    std::string library = at(entry->Name);
    std::transform(library.begin(), library.end(), library.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    names.insert(library);
  }
  FreeLibrary(image);
  return names;
}

TEST(Libraries, OfTheProgramsAreTheSystemsOwn) {
  for (const wchar_t* const program : {kProgram, kLab}) {
    const std::set<std::string> imports = ImportsOf(program);
    EXPECT_TRUE(imports.contains("kernel32.dll"));
    for (const std::string& library : imports) EXPECT_TRUE(kSafe.contains(library)) << library;
  }
}

}  // namespace
}  // namespace orvenza::test
