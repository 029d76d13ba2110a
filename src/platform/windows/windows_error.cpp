#include "platform/windows/windows_error.h"

#include <windows.h>

#include "platform/system_error.h"
#include "platform/windows/windows_paths.h"

namespace orvenza {
namespace {

/// ERROR_DISK_QUOTA_EXCEEDED, which some compilers' headers lack.
constexpr unsigned long kDiskQuotaExceeded = 1295;

bool FolderMissing(const std::string& path) {
  const std::size_t cut = path.find_last_of("\\/");
  if (cut == std::string::npos) return false;
  return ::GetFileAttributesW(NativeFolderPath(path.substr(0, cut + 1)).c_str()) == INVALID_FILE_ATTRIBUTES;
}

}  // namespace

int NumberOf(unsigned long code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND: return error_number::kFileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME: return error_number::kPathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_CURRENT_DIRECTORY:
    case ERROR_NOT_SAME_DEVICE:
    case ERROR_WRITE_PROTECT:
    case ERROR_DIR_NOT_EMPTY:
    case ERROR_BUSY:
    case ERROR_DIRECTORY:
    case ERROR_CANT_RESOLVE_FILENAME: return error_number::kPathFileAccess;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_DELETE_PENDING:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD: return error_number::kPermissionDenied;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return error_number::kFileExists;
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_FULL:
    case ERROR_FILE_TOO_LARGE:
    case kDiskQuotaExceeded: return error_number::kDiskFull;
    case ERROR_INVALID_PARAMETER:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE: return error_number::kBadFileName;
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETNAME_DELETED:
    case ERROR_SEM_TIMEOUT:
    case ERROR_IO_DEVICE: return error_number::kDeviceError;
    case ERROR_BAD_UNIT:
    case ERROR_NOT_READY:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_NETWORK_UNREACHABLE: return error_number::kDeviceUnavailable;
    case ERROR_TOO_MANY_OPEN_FILES: return error_number::kTooManyFiles;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES: return error_number::kOutOfMemory;
    default: return error_number::kInternalError;
  }
}

bool MeansMissing(unsigned long code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY: return true;
    default: return false;  // A server that does not answer may have the file.
  }
}

void ThrowFileError(unsigned long code, const std::string& path) {
  // Some file systems report a missing folder or drive as a missing file.
  if (code == ERROR_FILE_NOT_FOUND && FolderMissing(path)) code = ERROR_PATH_NOT_FOUND;
  throw SystemError(NumberOf(code), path);
}

void ThrowFolderError(unsigned long code, const std::string& path) {
  throw SystemError(code == ERROR_FILE_NOT_FOUND ? error_number::kPathNotFound : NumberOf(code), path);
}

}  // namespace orvenza
