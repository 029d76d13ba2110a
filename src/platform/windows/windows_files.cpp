#include "platform/windows/windows_files.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/system_error.h"
#include "platform/windows/file_attributes.h"
#include "platform/windows/unfinished_file.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_error.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

constexpr std::size_t kCopyPiece = 32 * 1024;

FileHandle OpenSource(const std::string& path, WhileRead others) {
  const DWORD writing = others == WhileRead::kEverything ? FILE_SHARE_WRITE : 0;
  const DWORD sharing = FILE_SHARE_READ | FILE_SHARE_DELETE | writing;
  FileHandle file(::CreateFileW(NativePath(path).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file.Valid()) ThrowFileError(::GetLastError(), path);
  // Names like CON and COM1 are devices in every folder, and reading one may never end.
  if (::GetFileType(file.Get()) != FILE_TYPE_DISK) throw SystemError(error_number::kPathFileAccess, path);
  return file;
}

/// Full sharing: another program's handle does not prevent access to the times.
FileHandle OpenForTimes(const std::string& path, DWORD access) {
  constexpr DWORD kSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  FileHandle file(::CreateFileW(NativePath(path).c_str(), access, kSharing, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.Valid()) ThrowFileError(::GetLastError(), path);
  return file;
}

FILETIME ModifiedOf(const FileHandle& file, const std::string& path) {
  FILETIME modified{};
  if (!::GetFileTime(file.Get(), nullptr, nullptr, &modified)) ThrowFileError(::GetLastError(), path);
  return modified;
}

class WindowsByteReader : public ByteReader {
 public:
  WindowsByteReader(FileHandle file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  std::size_t Read(char* buffer, std::size_t capacity) override {
    DWORD count = 0;
    const DWORD piece = static_cast<DWORD>(std::min<std::size_t>(capacity, 1024 * 1024));
    if (!::ReadFile(file_.Get(), buffer, piece, &count, nullptr)) ThrowFileError(::GetLastError(), path_);
    return count;
  }

  FILETIME Modified() const { return ModifiedOf(file_, path_); }

 private:
  FileHandle file_;
  std::string path_;
};

}  // namespace

bool WindowsFiles::Exists(const std::string& path) const {
  const auto attributes = AttributesIfThere(path, false);
  return attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::uintmax_t WindowsFiles::Size(const std::string& path) const {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!::GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data)) {
    ThrowFileError(::GetLastError(), path);
  }
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) ThrowFileError(ERROR_ACCESS_DENIED, path);
  return (std::uintmax_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
}

std::unique_ptr<ByteReader> WindowsFiles::OpenForReading(const std::string& path) const {
  return std::make_unique<WindowsByteReader>(OpenSource(path, others_), path);
}

void WindowsFiles::Append(const std::string& path, std::string_view text) {
  constexpr DWORD kSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const FileHandle file(::CreateFileW(NativePath(path).c_str(), FILE_APPEND_DATA, kSharing, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.Valid() || !WriteAll(file.Get(), text)) ThrowFileError(::GetLastError(), path);
}

void WindowsFiles::Write(const std::string& path, std::string_view content) {
  UnfinishedFile file(path);
  file.Add(content);
  file.Finish();
}

void WindowsFiles::Copy(const std::string& from, const std::string& to) {
  WindowsByteReader source(OpenSource(from, others_), from);
  UnfinishedFile target(to);
  std::vector<char> buffer(kCopyPiece);
  while (const std::size_t count = source.Read(buffer.data(), buffer.size())) {
    target.Add({buffer.data(), count});
  }
  target.SetModified(source.Modified());
  target.Finish();
}

void WindowsFiles::Move(const std::string& from, const std::string& to) {
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (::MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(), kHow)) return;
  const DWORD code = ::GetLastError();
  // If the source exists, it is the target's folder that is missing.
  ThrowFileError(code, code == ERROR_PATH_NOT_FOUND && MayExist(*this, from) ? to : from);
}

void WindowsFiles::Remove(const std::string& path) {
  if (!::DeleteFileW(NativePath(path).c_str())) ThrowFileError(::GetLastError(), path);
}

void WindowsFiles::ClearAttributes(const std::string& path) {
  if (!::SetFileAttributesW(NativePath(path).c_str(), FILE_ATTRIBUTE_NORMAL)) {
    ThrowFileError(::GetLastError(), path);
  }
}

void WindowsFiles::CopyModified(const std::string& from, const std::string& to) {
  const FILETIME modified = ModifiedOf(OpenForTimes(from, FILE_READ_ATTRIBUTES), from);
  const FileHandle target = OpenForTimes(to, FILE_WRITE_ATTRIBUTES);
  if (!::SetFileTime(target.Get(), nullptr, nullptr, &modified)) ThrowFileError(::GetLastError(), to);
}

}  // namespace orvenza
