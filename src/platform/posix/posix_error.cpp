#include "platform/posix/posix_error.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/posix/native_path.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

bool ParentMissing(const std::string& path) {
  const std::string native = NativeFolderPath(path);
  const std::size_t cut = native.rfind('/');
  if (cut == std::string::npos) return false;
  struct stat parent {};
  return ::stat(native.substr(0, cut + 1).c_str(), &parent) != 0;
}

}  // namespace

int NumberOf(int code) {
  switch (code) {
    case ENOENT: return error_number::kFileNotFound;
    case EACCES:
    case EPERM:
    case ETXTBSY:
    case EAGAIN: return error_number::kPermissionDenied;
    case EROFS:
    case EBUSY:
    case ENOTDIR:
    case EISDIR:
    case ENOTEMPTY:
    case EXDEV:
    case ELOOP:
    case EMLINK: return error_number::kPathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return error_number::kDiskFull;
    case EEXIST: return error_number::kFileExists;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ: return error_number::kBadFileName;
    case EIO:
    case ESTALE:
    case ETIMEDOUT: return error_number::kDeviceError;
    case EMFILE:
    case ENFILE: return error_number::kTooManyFiles;
    case ENXIO:
    case ENODEV: return error_number::kDeviceUnavailable;
    case ENOMEM: return error_number::kOutOfMemory;
    default: return error_number::kInternalError;
  }
}

bool MeansMissing(int code) { return code == ENOENT || code == ENOTDIR || code == ENAMETOOLONG; }

void ThrowFileError(int code, const std::string& path) {
  if (code == ENOENT && ParentMissing(path)) throw SystemError(error_number::kPathNotFound, path);
  throw SystemError(NumberOf(code), path);
}

void ThrowFolderError(int code, const std::string& path) {
  throw SystemError(code == ENOENT ? error_number::kPathNotFound : NumberOf(code), path);
}

}  // namespace orvenza
