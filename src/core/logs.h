#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"

namespace orvenza {

/// Paths of the logs, part of the settings.
struct LogPaths {
  std::string LogPath;  ///< Empty until the settings are read.
  std::string ErrPath;  ///< Empty until the settings are read or the first error is written.
};

/// The two logs in the program folder: `Log.txt` (activity) and `Err.txt` (errors). On return every line is
/// with the operating system; no call ever fails. As long as the paths are empty, lines go to the fallback
/// files.
class Logs {
 public:
  /// The "Bak" copy of the log `path`, whatever its extension.
  static constexpr std::uintmax_t kRotationSize = 250000;

  /// Files in the program folder for lines that cannot be written to the logs.
  static constexpr const char* kLogFallback = "log.txt";
  static constexpr const char* kErrFallback = "error.txt";

  /// The "Bak" copy of the log `path`, whatever its extension.
  static std::string BakOf(const std::string& path) { return path.substr(0, path.size() - 3) + "Bak"; }

  /// `programFolder` without a trailing "\".
  Logs(Files& files, Clock& clock, LogPaths& paths, const std::string& programFolder);

  /// Appends one line to the activity log. On return `message` holds the stamped line.
  void WrLog(std::string& message);
  void WrLog(std::string&& message) { WrLog(message); }

  /// Appends one line to the error log. On return `message` holds the stamped line.
  void WrErr(std::string& message);
  void WrErr(std::string&& message) { WrErr(message); }

  /// Writes `label`, `number`, " - " and `description` to the error log, the format of every trapped failure.
  void WrFailure(std::string_view label, int number, std::string_view description);

  /// Runs one step of a procedure in its trap. Empty when the step succeeded, otherwise the line for its
  /// failure, which is not written. ProgramEnd passes through.
  [[nodiscard]] static std::optional<std::string> FailureOf(std::string_view label,
                                                            const std::function<void()>& step);

  /// Runs one step of a procedure in its trap. A failure is written to the error log under `label`, and the
  /// caller goes on with its next step. Returns whether the step succeeded. ProgramEnd passes through.
  bool Attempt(std::string_view label, const std::function<void()>& step);

  /// The same for a step with a value: returns it, or nothing after a failure.
  template <typename Step, typename Value = std::invoke_result_t<Step>>
  requires(!std::is_void_v<Value>)
      [[nodiscard]] std::optional<Value> Attempt(std::string_view label, Step step) {
    std::optional<Value> value;
    Attempt(label, [&] { value.emplace(step()); });
    return value;
  }

  const Clock& StampClock() const { return clock_; }

  /// The logs and their fallback files, with their "Bak" copies. Some may not exist.
  std::vector<std::string> Paths() const;

 private:
  void Write(const std::string& path, std::string& message, std::string_view routine,
             const std::string& fallback);
  void MoveAsideWhenLarge(const std::string& path);

  Files& files_;
  Clock& clock_;
  LogPaths& paths_;
  std::string logFallback_;
  std::string errFallback_;
};

}  // namespace orvenza
