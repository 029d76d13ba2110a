#include "lab/shell/posix/posix_machine.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <filesystem>

#include "platform/instance_lock.h"
#include "platform/posix/native_path.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// The native path, or one that does not exist if `path` is impossible on this system.
std::string NativeOrNone(const std::string& path) {
  try {
    return NativePath(path);
  } catch (const SystemError&) {
    return {};
  }
}

}  // namespace

std::string PosixMachine::SystemName() const {
  utsname name{};
  if (::uname(&name) != 0) return "unknown";
  return std::string(name.sysname) + " " + name.release + " " + name.machine;
}

std::string PosixMachine::FullFolder(const std::string& folder) const {
  std::error_code failure;
  const auto full = std::filesystem::weakly_canonical(NativeOrNone(folder), failure);
  return failure || full.empty() ? folder : full.string();
}

std::optional<std::uintmax_t> PosixMachine::FreeSpace(const std::string& folder) const {
  struct statvfs volume {};
  if (::statvfs(NativeOrNone(folder).c_str(), &volume) != 0) return {};
  return std::uintmax_t{volume.f_bavail} * volume.f_frsize;
}

std::string PosixMachine::VolumeOf(const std::string& folder) const {
  struct stat status {};
  if (::stat(NativeOrNone(folder).c_str(), &status) != 0) return {};
  return std::to_string(status.st_dev);
}

bool PosixMachine::MayWrite(const std::string& path) const {
  return ::access(NativeOrNone(path).c_str(), W_OK) == 0;
}

bool PosixMachine::IsServed(const std::string& programFolder) const { return IsFolderServed(programFolder); }

}  // namespace orvenza
