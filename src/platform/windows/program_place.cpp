#include "platform/windows/program_place.h"

#include <windows.h>
// Requires windows.h.
#include <shellapi.h>

#include <memory>

#include "platform/windows/wide.h"

namespace orvenza {
namespace {

constexpr std::size_t kLongestPath = 32768;

std::wstring ProgramPath() {
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

}  // namespace

std::vector<std::string> CommandWords() {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                            &LocalFree);
  std::vector<std::string> result;
  for (int i = 1; i < count; ++i) result.push_back(ToUtf8(words.get()[i]));
  return result;
}

std::string HomeFolder() {
  const std::wstring path = ProgramPath();
  return ToUtf8(path.substr(0, path.rfind(L'\\')));
}

std::string ProgramName() {
  const std::wstring path = ProgramPath();
  const std::wstring name = path.substr(path.rfind(L'\\') + 1);
  return ToUtf8(name.substr(0, name.rfind(L'.')));
}

std::string FullFolder(const std::string& folder) {
  std::wstring path(kLongestPath, L'\0');
  path.resize(
      GetFullPathNameW(ToWide(folder).c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr));
  if (path.ends_with(L'\\')) path.pop_back();
  return ToUtf8(path);
}

}  // namespace orvenza
