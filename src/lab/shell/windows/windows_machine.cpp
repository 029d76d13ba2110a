#include "lab/shell/windows/windows_machine.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>

#include "lab/shell/windows/control_search.h"
#include "platform/instance_lock.h"
#include "platform/system_error.h"
#include "platform/windows/program_place.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// Large enough for the names of all devices, of which a PC has hundreds.
constexpr std::size_t kAllDevices = 256 * 1024;

/// Empty if `path` is impossible on this system.
std::wstring NativeOrNone(const std::string& path) {
  try {
    return NativePath(path);
  } catch (const SystemError&) {
    return {};
  }
}

/// Opens an existing file or folder with the requested right; opening changes nothing.
FileHandle Open(const std::string& path, DWORD right) {
  return FileHandle(::CreateFileW(NativeOrNone(path).c_str(), right, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

/// The real version: the ordinary function reports the version that the program's manifest names.
OSVERSIONINFOW VersionOfSystem() {
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  using Function = LONG(WINAPI*)(OSVERSIONINFOW*);
  const HMODULE library = ::GetModuleHandleW(L"ntdll.dll");
  const auto ask = reinterpret_cast<Function>(
      reinterpret_cast<void*>(library == nullptr ? nullptr : ::GetProcAddress(library, "RtlGetVersion")));
  if (ask != nullptr) ask(&version);
  return version;
}

}  // namespace

std::string WindowsMachine::SystemName() const {
  const OSVERSIONINFOW version = VersionOfSystem();
  SYSTEM_INFO system{};
  ::GetNativeSystemInfo(&system);
  return "Windows " + std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) +
         "." + std::to_string(version.dwBuildNumber) +
         (system.wProcessorArchitecture == PROCESSOR_ARCHITECTURE_INTEL ? ", 32 bits" : ", 64 bits");
}

std::string WindowsMachine::FullFolder(const std::string& folder) const {
  return orvenza::FullFolder(folder);
}

std::optional<std::uintmax_t> WindowsMachine::FreeSpace(const std::string& folder) const {
  ULARGE_INTEGER free{};
  if (!::GetDiskFreeSpaceExW(NativeOrNone(folder).c_str(), &free, nullptr, nullptr)) return {};
  return free.QuadPart;
}

std::string WindowsMachine::VolumeOf(const std::string& folder) const {
  const FileHandle handle = Open(folder, 0);
  BY_HANDLE_FILE_INFORMATION information{};
  if (!handle.Valid() || !::GetFileInformationByHandle(handle.Get(), &information)) return {};
  return std::to_string(information.dwVolumeSerialNumber);
}

bool WindowsMachine::MayWrite(const std::string& path) const {
  const DWORD attributes = ::GetFileAttributesW(NativeOrNone(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return false;
  const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // A folder's read-only attribute has another meaning and does not prevent creating files.
  if (!isFolder && (attributes & FILE_ATTRIBUTE_READONLY) != 0) return false;
  return Open(path, isFolder ? FILE_ADD_FILE : FILE_APPEND_DATA).Valid();
}

bool WindowsMachine::IsServed(const std::string& programFolder) const {
  return IsFolderServed(programFolder);
}

ControlRegistration WindowsMachine::FindControl() const { return SearchControl(); }

std::optional<std::vector<int>> WindowsMachine::SerialPorts() const {
  std::wstring names(kAllDevices, L'\0');
  names.resize(::QueryDosDeviceW(nullptr, names.data(), static_cast<DWORD>(names.size())));
  std::vector<int> ports;
  for (std::size_t at = 0; at < names.size() && names[at] != L'\0';) {
    const std::wstring name = names.c_str() + at;
    wchar_t* end = nullptr;
    const long number = name.starts_with(L"COM") ? std::wcstol(name.c_str() + 3, &end, 10) : 0;
    if (number > 0 && *end == L'\0') ports.push_back(static_cast<int>(number));
    at += name.size() + 1;
  }
  std::sort(ports.begin(), ports.end());
  return ports;
}

}  // namespace orvenza
