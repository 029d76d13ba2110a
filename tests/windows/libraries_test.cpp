// Which libraries the programs are bound to. Windows looks for others beside the program first, where anybody
// who may write to the shop's folder could put one.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "windows/till.h"

namespace orvenza::test {
namespace {

/// Those that Windows never looks for beside the program: it knows them by heart, or the manifest names them.
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
