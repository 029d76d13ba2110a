#include "platform/posix/file_status.h"

#include <cerrno>

#include "platform/posix/native_path.h"
#include "platform/posix/posix_error.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

std::optional<std::string> NativePathIfAny(const std::string& path) {
  try {
    return NativePath(path);
  } catch (const SystemError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<struct stat> StatusIfThere(const std::string& path) {
  const auto native = NativePathIfAny(path);
  struct stat status {};
  if (!native) return std::nullopt;
  if (::stat(native->c_str(), &status) == 0) return status;
  if (MeansMissing(errno)) return std::nullopt;
  ThrowFileError(errno, path);
}

}  // namespace orvenza
