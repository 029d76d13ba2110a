#include "platform/posix/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/posix/descriptor.h"
#include "platform/posix/file_status.h"
#include "platform/posix/folder_flush.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_error.h"
#include "platform/posix/unfinished_file.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

constexpr mode_t kNewFileMode = 0666;  // Restricted by the user's umask.
constexpr mode_t kPermissionBits = 0777;

/// An open regular file and its status.
struct SourceFile {
  Descriptor descriptor;
  struct stat status {};
};

struct stat StatusOf(const std::string& path) {
  struct stat status {};
  if (::stat(NativePath(path).c_str(), &status) != 0) ThrowFileError(errno, path);
  return status;
}

Descriptor Open(const std::string& path, int flags) {
  const std::string native = NativePath(path);
  int descriptor = -1;
  do {
    // Without O_NONBLOCK, opening a pipe would block until its other end is opened.
    descriptor = ::open(native.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, kNewFileMode);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) ThrowFileError(errno, path);
  return Descriptor(descriptor);
}

SourceFile OpenSource(const std::string& path) {
  SourceFile source{Open(path, O_RDONLY)};
  if (::fstat(source.descriptor.Get(), &source.status) != 0) ThrowFileError(errno, path);
  if (!S_ISREG(source.status.st_mode)) throw SystemError(error_number::kPathFileAccess, path);
  return source;
}

/// `native` is a native path.
std::string_view FolderOf(std::string_view native) { return native.substr(0, native.rfind('/') + 1); }

class PosixByteReader : public ByteReader {
 public:
  PosixByteReader(Descriptor descriptor, std::string path)
      : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

  std::size_t Read(char* buffer, std::size_t capacity) override {
    ssize_t count = 0;
    do count = ::read(descriptor_.Get(), buffer, capacity);
    while (count < 0 && errno == EINTR);
    if (count < 0) ThrowFileError(errno, path_);
    return static_cast<std::size_t>(count);
  }

 private:
  Descriptor descriptor_;
  std::string path_;
};

}  // namespace

bool PosixFiles::Exists(const std::string& path) const {
  const auto status = StatusIfThere(path);
  return status && !S_ISDIR(status->st_mode);
}

std::uintmax_t PosixFiles::Size(const std::string& path) const {
  const struct stat status = StatusOf(path);
  if (S_ISDIR(status.st_mode)) ThrowFileError(EISDIR, path);
  return static_cast<std::uintmax_t>(status.st_size);
}

std::unique_ptr<ByteReader> PosixFiles::OpenForReading(const std::string& path) const {
  return std::make_unique<PosixByteReader>(OpenSource(path).descriptor, path);
}

void PosixFiles::Append(const std::string& path, std::string_view text) {
  Descriptor file = Open(path, O_WRONLY | O_APPEND | O_CREAT);
  if (!WriteAll(file.Get(), text) || !file.Close()) ThrowFileError(errno, path);
}

void PosixFiles::Write(const std::string& path, std::string_view content) {
  UnfinishedFile file(path, kNewFileMode);
  struct stat older {};
  if (::stat(NativePath(path).c_str(), &older) == 0) file.SetMode(older.st_mode & kPermissionBits);
  file.Add(content);
  file.Finish();
}

void PosixFiles::Copy(const std::string& from, const std::string& to) {
  SourceFile source = OpenSource(from);
  const struct stat status = source.status;
  PosixByteReader reader(std::move(source.descriptor), from);
  // The copy is always writable for its owner, so that a read-only ticket can be removed later.
  UnfinishedFile target(to, (status.st_mode & kPermissionBits) | S_IRUSR | S_IWUSR);
  std::array<char, 32768> buffer;
  while (const std::size_t count = reader.Read(buffer.data(), buffer.size())) {
    target.Add({buffer.data(), count});
  }
  target.SetModified(status.st_mtim);
  target.Finish();
}

void PosixFiles::Move(const std::string& from, const std::string& to) {
  const std::string source = NativePath(from);
  const std::string target = NativePath(to);
  if (::rename(source.c_str(), target.c_str()) != 0) {
    const int code = errno;
    // If the source exists, it is the target's folder that is missing.
    ThrowFileError(code, code == ENOENT && MayExist(*this, from) ? to : from);
  }
  FlushFolderOf(target);
  if (FolderOf(source) != FolderOf(target)) FlushFolderOf(source);
}

void PosixFiles::Remove(const std::string& path) {
  if (::unlink(NativePath(path).c_str()) != 0) ThrowFileError(errno, path);
}

void PosixFiles::ClearAttributes(const std::string& path) {
  const mode_t mode = StatusOf(path).st_mode;
  if ((mode & S_IWUSR) != 0) return;
  if (::chmod(NativePath(path).c_str(), (mode & kPermissionBits) | S_IWUSR) != 0) ThrowFileError(errno, path);
}

void PosixFiles::CopyModified(const std::string& from, const std::string& to) {
  const struct timespec times[2] = {{0, UTIME_OMIT}, StatusOf(from).st_mtim};
  if (::utimensat(AT_FDCWD, NativePath(to).c_str(), times, 0) != 0) ThrowFileError(errno, to);
}

}  // namespace orvenza
