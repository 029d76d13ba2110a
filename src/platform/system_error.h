#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace orvenza {

/// The failure numbers that operators and support know from the error log.
namespace error_number {
inline constexpr int kInvalidArgument = 5;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kInternalError = 51;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceError = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kTooManyFiles = 67;
inline constexpr int kDeviceUnavailable = 68;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kCannotCreateObject = 429;
}  // namespace error_number

/// The standard description of a failure number; "Unknown error" for a number not listed above.
std::string_view StandardDescription(int number);

/// A failure of the machine (file, folder, clock, device control): its number and a description.
class SystemError : public std::exception {
 public:
  /// `detail` (usually the path) follows the standard description: "description ( detail )".
  explicit SystemError(int number, std::string_view detail = {});

  int Number() const noexcept { return number_; }
  const std::string& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string description_;
};

}  // namespace orvenza
