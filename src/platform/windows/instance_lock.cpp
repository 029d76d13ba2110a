#include "platform/instance_lock.h"

#include <cstdint>
#include <cstdio>

#include "platform/system_error.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

/// The canonical path of a folder, however it was reached: by a short name, a junction or a substituted
/// drive.
std::wstring FinalPath(const std::wstring& folder) {
  constexpr DWORD kSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const FileHandle handle(::CreateFileW(folder.c_str(), 0, kSharing, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!handle.Valid()) return folder;
  std::wstring path(32768, L'\0');
  const DWORD size = static_cast<DWORD>(path.size());
  const DWORD length = ::GetFinalPathNameByHandleW(handle.Get(), path.data(), size, FILE_NAME_NORMALIZED);
  if (length == 0 || length >= size) return folder;
  path.resize(length);
  return path;
}

/// Without the "\" the root of a drive would mean the drive's current folder. A mutex name is limited in
/// length and may not contain "\", so the path is hashed (FNV-1a).
std::wstring MutexName(const std::string& programFolder) {
  std::wstring path = FinalPath(NativeFolderPath(programFolder + "\\"));
  ::CharLowerBuffW(path.data(), static_cast<DWORD>(path.size()));
  std::uint64_t hash = 14695981039346656037u;
  for (const wchar_t unit : path) hash = (hash ^ static_cast<std::uint64_t>(unit)) * 1099511628211u;
  wchar_t digits[17];
  for (int i = 0; i < 16; ++i) digits[i] = L"0123456789abcdef"[(hash >> (60 - 4 * i)) & 15];
  digits[16] = L'\0';
  return std::wstring(L"Global\\Orvenza-") + digits;
}

}  // namespace

/// Nothing waits for the mutex: the existence of its name is the mark, and the system removes it with the
/// process.
struct InstanceLock::State {
  ObjectHandle mutex;
  bool taken = false;
};

InstanceLock::InstanceLock(const std::string& programFolder) : state_(std::make_unique<State>()) {
  try {
    state_->mutex = ObjectHandle(::CreateMutexW(nullptr, FALSE, MutexName(programFolder).c_str()));
  } catch (const SystemError&) {
    return;
  }
  const DWORD error = ::GetLastError();
  // Access is denied when the mutex belongs to another user, who shares the folder and the register.
  state_->taken = state_->mutex.Valid() ? error == ERROR_ALREADY_EXISTS : error == ERROR_ACCESS_DENIED;
  // A copy that was refused must not keep the name alive.
  if (state_->taken) state_->mutex.Reset();
}

InstanceLock::~InstanceLock() = default;

bool InstanceLock::Acquired() const { return !state_->taken; }

bool IsFolderServed(const std::string& programFolder) {
  try {
    const ObjectHandle mutex(::OpenMutexW(SYNCHRONIZE, FALSE, MutexName(programFolder).c_str()));
    return mutex.Valid() || ::GetLastError() == ERROR_ACCESS_DENIED;
  } catch (const SystemError&) {
    return false;
  }
}

}  // namespace orvenza
