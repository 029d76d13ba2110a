#include "platform/posix/unfinished_file.h"

#include <fcntl.h>

#include <cstdio>

#include "platform/files.h"
#include "platform/posix/folder_flush.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_error.h"

namespace orvenza {
namespace {

/// Longest file name of the common file systems, in bytes.
constexpr std::size_t kLongestName = 255;

std::string UnfinishedName(const std::string& nativeTarget) {
  const std::size_t nameAt = nativeTarget.rfind('/') + 1;  // npos + 1 is 0.
  const std::size_t room = kLongestName - kUnfinishedSuffix.size();
  return nativeTarget.substr(0, nameAt + room).append(kUnfinishedSuffix);
}

int CreateNew(const std::string& native, mode_t mode) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY;
  int descriptor = ::open(native.c_str(), kFlags, mode);
  if (descriptor < 0 && errno == EEXIST && ::unlink(native.c_str()) == 0) {  // Left by a crash.
    descriptor = ::open(native.c_str(), kFlags, mode);
  }
  return descriptor;
}

}  // namespace

bool WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

UnfinishedFile::UnfinishedFile(const std::string& target, mode_t mode)
    : target_(target),
      nativeTarget_(NativePath(target)),
      native_(UnfinishedName(nativeTarget_)),
      file_(CreateNew(native_, mode)) {
  if (!file_.Valid()) ThrowFileError(errno, target_);
}

UnfinishedFile::~UnfinishedFile() {
  if (!native_.empty()) ::unlink(native_.c_str());
}

void UnfinishedFile::Add(std::string_view bytes) {
  if (!WriteAll(file_.Get(), bytes)) ThrowFileError(errno, target_);
}

void UnfinishedFile::SetMode(mode_t mode) {
  if (::fchmod(file_.Get(), mode) != 0) ThrowFileError(errno, target_);
}

void UnfinishedFile::SetModified(const timespec& time) {
  const timespec times[2] = {{0, UTIME_OMIT}, time};
  if (::futimens(file_.Get(), times) != 0) ThrowFileError(errno, target_);
}

void UnfinishedFile::Finish() {
  // The data must be on the disk before the file gets its name: the source may be removed next, and the power
  // may fail.
  if (::fsync(file_.Get()) != 0 || !file_.Close()) ThrowFileError(errno, target_);
  if (::rename(native_.c_str(), nativeTarget_.c_str()) != 0) ThrowFileError(errno, target_);
  native_.clear();
  FlushFolderOf(nativeTarget_);
}

}  // namespace orvenza
