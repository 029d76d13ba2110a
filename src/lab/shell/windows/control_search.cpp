#include "lab/shell/windows/control_search.h"

#include <windows.h>

#include <cstring>

#include "device/ecr_link.h"
#include "platform/system_error.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_files.h"

namespace orvenza {
namespace {

struct RegistryKeyTraits {
  using Value = HKEY;
  static Value Empty() { return nullptr; }
  static void Close(Value value) { ::RegCloseKey(value); }
};
using RegistryKey = Unique<RegistryKeyTraits>;

/// The default value of a registry key of the registered classes, seen by programs of `view` bits; "" if
/// there is none.
std::wstring ClassText(const std::wstring& path, REGSAM view) {
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_QUERY_VALUE | view, &opened) != ERROR_SUCCESS) {
    return {};
  }
  const RegistryKey key(opened);
  std::wstring text(32768, L'\0');
  DWORD size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  // Expands environment variables.
  if (::RegGetValueW(key.Get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return text.c_str();
}

/// A path may be registered in quotes.
std::string Unquoted(const std::wstring& text) {
  const bool quoted = text.size() >= 2 && text.front() == L'"' && text.back() == L'"';
  return ToUtf8(quoted ? text.substr(1, text.size() - 2) : text);
}

/// A bare file name is searched for in the system's library path.
std::string Located(const std::string& server) {
  if (server.empty() || server.find('\\') != std::string::npos) return server;
  std::wstring path(32768, L'\0');
  const DWORD size = static_cast<DWORD>(path.size());
  const DWORD length = ::SearchPathW(nullptr, ToWide(server).c_str(), nullptr, size, path.data(), nullptr);
  path.resize(length < size ? length : 0);
  return path.empty() ? server : ToUtf8(path);
}

/// The processor type in a library's header; 0 for a file that is no library.
WORD ProcessorOf(const std::string& path) {
  constexpr std::size_t kPlaceOfHeader = 0x3C;
  try {
    const std::string bytes = ReadWhole(WindowsFiles(WhileRead::kEverything), path, 4096);
    DWORD header = 0;
    WORD processor = 0;
    if (!bytes.starts_with("MZ") || bytes.size() < kPlaceOfHeader + sizeof header) return 0;
    std::memcpy(&header, bytes.data() + kPlaceOfHeader, sizeof header);
    if (header > bytes.size() - 6 || std::memcmp(bytes.data() + header, "PE\0\0", 4) != 0) return 0;
    std::memcpy(&processor, bytes.data() + header + 4, sizeof processor);
    return processor;
  } catch (const SystemError&) {
    return 0;
  }
}

ControlState StateOfLibrary(const std::string& path) {
  if (!MayExist(WindowsFiles(), path)) return ControlState::kNoFile;
  const WORD processor = ProcessorOf(path);
  if (processor == 0) return ControlState::kNoProgram;
  return processor == IMAGE_FILE_MACHINE_I386 ? ControlState::kUsable : ControlState::kWrongBits;
}

}  // namespace

ControlRegistration SearchControl() {
  ControlRegistration found{ControlState::kNoName, kLinkControlName, {}};
  const std::wstring name = ToWide(kLinkControlName);
  const std::wstring classId = ClassText(name + L"\\CLSID", KEY_WOW64_32KEY);
  if (classId.empty()) {
    const bool isNamed = !ClassText(name, KEY_WOW64_32KEY).empty();
    if (isNamed) found.state = ControlState::kNoClass;
    return found;
  }
  const std::wstring server = L"CLSID\\" + classId + L"\\InprocServer32";
  found.server = Located(Unquoted(ClassText(server, KEY_WOW64_32KEY)));
  if (!found.server.empty()) {
    found.state = StateOfLibrary(found.server);
  } else {
    found.server = Unquoted(ClassText(server, KEY_WOW64_64KEY));
    found.state = found.server.empty() ? ControlState::kNoServer : ControlState::kWrongBits;
  }
  return found;
}

}  // namespace orvenza
