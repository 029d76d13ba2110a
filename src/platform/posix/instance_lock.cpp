#include "platform/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "platform/posix/descriptor.h"
#include "platform/posix/native_path.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Invalid where there is no such folder.
Descriptor OpenFolder(const std::string& programFolder) {
  try {
    const std::string native = NativeFolderPath(programFolder + "\\");
    return Descriptor(::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  } catch (const SystemError&) {
    return {};
  }
}

bool IsRefused(const Descriptor& folder, int lock) {
  return folder.Valid() && ::flock(folder.Get(), lock | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace

/// The lock lies on the folder itself: no file is left behind, and the system drops it with the process.
struct InstanceLock::State {
  Descriptor folder;
  bool taken = false;
};

InstanceLock::InstanceLock(const std::string& programFolder) : state_(std::make_unique<State>()) {
  state_->folder = OpenFolder(programFolder);
  state_->taken = IsRefused(state_->folder, LOCK_EX);
}

InstanceLock::~InstanceLock() = default;

bool InstanceLock::Acquired() const { return !state_->taken; }

// The system has no question for such a lock. A shared one, given back at once, leaves others that only look
// alone.
bool IsFolderServed(const std::string& programFolder) {
  return IsRefused(OpenFolder(programFolder), LOCK_SH);
}

}  // namespace orvenza
