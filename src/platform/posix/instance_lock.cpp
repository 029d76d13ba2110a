#include "platform/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "platform/posix/descriptor.h"
#include "platform/posix/native_path.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Invalid when there is no such folder.
Descriptor OpenFolder(const std::string& programFolder) {
  try {
    const std::string native = NativeFolderPath(programFolder + "\\");
    return Descriptor(::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  } catch (const SystemError&) {
    return {};
  }
}

bool IsRefused(const Descriptor& folder) {
  return folder.Valid() && ::flock(folder.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

/// An fcntl lock on the whole folder. Unlike flock, it can be tested without being taken.
struct flock WholeFolder(short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  return lock;
}

void ShowToOnlookers(const Descriptor& folder) {
  struct flock mark = WholeFolder(F_RDLCK);
  ::fcntl(folder.Get(), F_OFD_SETLK, &mark);
}

}  // namespace

/// Both locks are on the folder itself: no file is left behind, and the system releases them with the
/// process. The flock keeps a second copy out, but testing it means taking it for a moment in which no
/// connector could start. The fcntl lock exists to be tested.
struct InstanceLock::State {
  Descriptor folder;
  bool taken = false;
};

InstanceLock::InstanceLock(const std::string& programFolder) : state_(std::make_unique<State>()) {
  state_->folder = OpenFolder(programFolder);
  state_->taken = IsRefused(state_->folder);
  if (!state_->taken) ShowToOnlookers(state_->folder);
}

InstanceLock::~InstanceLock() = default;

bool InstanceLock::Acquired() const { return !state_->taken; }

bool IsFolderServed(const std::string& programFolder) {
  const Descriptor folder = OpenFolder(programFolder);
  struct flock wanted = WholeFolder(F_WRLCK);
  return ::fcntl(folder.Get(), F_OFD_GETLK, &wanted) == 0 && wanted.l_type != F_UNLCK;
}

}  // namespace orvenza
