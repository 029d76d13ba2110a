#include "platform/windows/windows_folders.h"

#include <string_view>

#include "platform/files.h"
#include "platform/name_mask.h"
#include "platform/system_error.h"
#include "platform/windows/file_attributes.h"
#include "platform/windows/folder_entry.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_error.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

bool IsListed(std::string_view name, const wchar_t* nativeName, std::string_view mask) {
  if (name == "." || name == ".." || name.ends_with(kUnfinishedSuffix)) return false;
  // A path with a malformed name could not be converted back.
  return MatchesMask(name, mask) && IsWellFormed(nativeName);
}

}  // namespace

WindowsFolders::WindowsFolders() {
  // An empty drive is an ordinary error, not a message box of the system.
  ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS);
}

bool WindowsFolders::Exists(const std::string& path) const {
  const auto attributes = AttributesIfThere(path, true);
  return attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

FolderListing WindowsFolders::ListFolder(const std::string& pattern) const {
  if (pattern.empty()) throw SystemError(error_number::kBadFileName);
  const std::size_t maskAt = pattern.find_last_of("\\/") + 1;  // npos + 1 is 0: the current folder.
  const std::string mask = pattern.substr(maskAt);
  const std::string path = pattern.substr(0, maskAt);
  // All names are fetched and matched here: the system's matching would include short (8.3) names.
  WIN32_FIND_DATAW data{};
  const FindHandle search(::FindFirstFileW(NativePath(path + "*").c_str(), &data));
  FolderListing listing;
  if (!search.Valid()) {
    const DWORD error = ::GetLastError();
    // The root of an empty drive lacks even the entry ".".
    if (error == ERROR_FILE_NOT_FOUND && (path.empty() || Exists(path))) return listing;
    ThrowFolderError(error, path);
  }
  do {
    std::string name = ToUtf8(data.cFileName);
    if (IsListed(name, data.cFileName, mask)) listing.push_back(EntryOf(data, std::move(name)));
  } while (::FindNextFileW(search.Get(), &data));
  if (const DWORD error = ::GetLastError(); error != ERROR_NO_MORE_FILES) ThrowFolderError(error, path);
  return listing;
}

void WindowsFolders::RemoveUnfinished(const std::string& path) {
  try {
    const std::wstring folder = NativeFolderPath(path) + L"\\";
    WIN32_FIND_DATAW data{};
    const FindHandle search(::FindFirstFileW((folder + L"*").c_str(), &data));
    if (!search.Valid()) return;
    do {
      const std::wstring_view name = data.cFileName;
      if (name.ends_with(ToWide(kUnfinishedSuffix))) ::DeleteFileW((folder + data.cFileName).c_str());
    } while (::FindNextFileW(search.Get(), &data));
  } catch (const SystemError&) {
    // The path is impossible, so there is nothing to remove.
  }
}

void WindowsFolders::Create(const std::string& path) {
  if (!::CreateDirectoryW(NativeFolderPath(path).c_str(), nullptr)) ThrowFolderError(::GetLastError(), path);
}

void WindowsFolders::Rename(const std::string& from, const std::string& to) {
  const std::wstring source = NativeFolderPath(from);
  const std::wstring target = NativeFolderPath(to);
  if (!Exists(from)) throw SystemError(error_number::kPathNotFound, from);
  if (::MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH)) return;
  const DWORD error = ::GetLastError();
  if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS) ThrowFolderError(error, to);
  const bool inUse = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
  ThrowFolderError(inUse ? ERROR_BUSY : error, from);
}

std::string WindowsFolders::DriveOf(const std::string& path) const { return DriveIn(path); }

bool WindowsFolders::DriveAvailable(const std::string& path) const {
  const std::string drive = DriveIn(path);
  try {
    return drive.empty() || Exists(drive + "\\");
  } catch (const SystemError&) {
    return false;
  }
}

}  // namespace orvenza
