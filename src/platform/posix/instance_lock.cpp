#include "platform/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "platform/posix/descriptor.h"
#include "platform/posix/native_path.h"
#include "platform/system_error.h"

namespace orvenza {

/// The lock lies on the folder itself: no file is left behind, and the system drops it with the process.
struct InstanceLock::State {
  Descriptor folder;
  bool taken = false;
};

InstanceLock::InstanceLock(const std::string& programFolder) : state_(std::make_unique<State>()) {
  try {
    const std::string native = NativeFolderPath(programFolder + "\\");
    state_->folder = Descriptor(::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  } catch (const SystemError&) {
    return;
  }
  if (!state_->folder.Valid()) return;
  state_->taken = ::flock(state_->folder.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

InstanceLock::~InstanceLock() = default;

bool InstanceLock::Acquired() const { return !state_->taken; }

}  // namespace orvenza
