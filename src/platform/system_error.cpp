#include "platform/system_error.h"

namespace orvenza {

std::string_view StandardDescription(int number) {
  switch (number) {
    case error_number::kInvalidArgument: return "Invalid procedure call or argument";
    case error_number::kOutOfMemory: return "Out of memory";
    case error_number::kSubscriptOutOfRange: return "Subscript out of range";
    case error_number::kInternalError: return "Internal error";
    case error_number::kBadFileName: return "Bad file name or number";
    case error_number::kFileNotFound: return "File not found";
    case error_number::kDeviceError: return "Device I/O error";
    case error_number::kFileExists: return "File already exists";
    case error_number::kDiskFull: return "Disk full";
    case error_number::kTooManyFiles: return "Too many files";
    case error_number::kDeviceUnavailable: return "Device unavailable";
    case error_number::kPermissionDenied: return "Permission denied";
    case error_number::kPathFileAccess: return "Path/File access error";
    case error_number::kPathNotFound: return "Path not found";
    case error_number::kCannotCreateObject: return "Component can't create object";
    default: return "Unknown error";
  }
}

SystemError::SystemError(int number, std::string_view detail)
    : number_(number), description_(StandardDescription(number)) {
  if (!detail.empty()) description_.append(" ( ").append(detail).append(" )");
}

}  // namespace orvenza
