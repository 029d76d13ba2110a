#include "platform/posix/posix_folders.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>

#include "platform/files.h"
#include "platform/name_mask.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/file_status.h"
#include "platform/posix/local_times.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_error.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

OpenFolder Open(const std::string& native, const std::string& path) {
  Descriptor descriptor(::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.Valid()) ThrowFolderError(errno, path);
  OpenFolder folder(::fdopendir(descriptor.Get()));
  if (!folder) ThrowFolderError(errno, path);
  descriptor.Release();
  return folder;
}

bool IsListed(const dirent& entry, std::string_view mask) {
  const std::string_view name = entry.d_name;
  if (name == "." || name == ".." || name.ends_with(kUnfinishedSuffix)) return false;
  const bool mayBeListed = entry.d_type == DT_REG || entry.d_type == DT_DIR || entry.d_type == DT_LNK ||
                           entry.d_type == DT_UNKNOWN;
  return mayBeListed && MatchesMask(name, mask) && name.find('\\') == std::string_view::npos;
}

void Add(FolderListing& listing, const char* name, const struct stat& status, LocalTimes& times) {
  FolderEntry& entry = listing.emplace_back();
  entry.name = name;
  entry.isFolder = S_ISDIR(status.st_mode);
  entry.size = entry.isFolder ? 0 : static_cast<std::uintmax_t>(status.st_size);
  entry.created = times.Of(status.st_ctim.tv_sec);
  entry.accessed = times.Of(status.st_atim.tv_sec);
  entry.modified = times.Of(status.st_mtim.tv_sec);
  entry.attributes = "      ";
  if ((status.st_mode & S_IWUSR) == 0) entry.attributes[1] = 'R';
  if (name[0] == '.') entry.attributes[2] = 'H';
}

}  // namespace

bool PosixFolders::Exists(const std::string& path) const {
  const auto status = StatusIfThere(path);
  return status && S_ISDIR(status->st_mode);
}

FolderListing PosixFolders::ListFolder(const std::string& pattern) const {
  const std::string native = NativePath(pattern);
  const std::size_t maskAt = native.rfind('/') + 1;  // npos + 1 is 0: the current folder.
  const std::string mask = native.substr(maskAt);
  const std::string path = pattern.substr(0, maskAt);
  const OpenFolder folder = Open(maskAt == 0 ? "." : native.substr(0, maskAt), path);
  FolderListing listing;
  LocalTimes times;
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(folder.get());
    if (entry == nullptr) break;
    if (!IsListed(*entry, mask)) continue;
    struct stat status {};
    if (::fstatat(::dirfd(folder.get()), entry->d_name, &status, 0) != 0) {
      // Removed since the folder was read, or a dangling link.
      if (errno == ENOENT || entry->d_type == DT_LNK) continue;
      ThrowFolderError(errno, path);
    }
    if (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode)) Add(listing, entry->d_name, status, times);
  }
  if (errno != 0) ThrowFolderError(errno, path);
  return listing;
}

void PosixFolders::RemoveUnfinished(const std::string& path) {
  try {
    const OpenFolder folder = Open(NativePath(path), path);
    while (const dirent* entry = ::readdir(folder.get())) {
      if (!std::string_view(entry->d_name).ends_with(kUnfinishedSuffix)) continue;
      ::unlinkat(::dirfd(folder.get()), entry->d_name, 0);
    }
  } catch (const SystemError&) {
    // The folder cannot be read: there is nothing to remove, or no way to.
  }
}

void PosixFolders::Create(const std::string& path) {
  if (::mkdir(NativeFolderPath(path).c_str(), 0777) != 0) ThrowFolderError(errno, path);
}

void PosixFolders::Rename(const std::string& from, const std::string& to) {
  const std::string source = NativeFolderPath(from);
  const std::string target = NativeFolderPath(to);
  if (!Exists(from)) throw SystemError(error_number::kPathNotFound, from);
  struct stat status {};
  // rename would silently replace an empty folder.
  if (::lstat(target.c_str(), &status) == 0) throw SystemError(error_number::kFileExists, to);
  if (::rename(source.c_str(), target.c_str()) == 0) return;
  ThrowFolderError(errno == EACCES || errno == EPERM ? EBUSY : errno, from);
}

std::string PosixFolders::DriveOf(const std::string& path) const { return MissingDrive(path); }

bool PosixFolders::DriveAvailable(const std::string& path) const { return MissingDrive(path).empty(); }

}  // namespace orvenza
