#pragma once

namespace orvenza {

/// The program's exit codes.
namespace exit_status {
inline constexpr int kInOrder = 0;        ///< The operator, the host or the system asked for the end.
inline constexpr int kFailed = 2;         ///< Could not start: command line, folder, script.
inline constexpr int kServedAlready = 3;  ///< Another instance serves the folder.
inline constexpr int kSettings = 4;       ///< The settings are unusable.
inline constexpr int kFolderNotMade = 5;  ///< A folder named by the settings cannot be created.
}  // namespace exit_status

/// Thrown to end the program. Deliberately not a std::exception: a trap, which logs a failure and carries
/// on, must let it pass.
struct ProgramEnd {
  /// True for an orderly end (the main form is unloaded and "End" is logged), false for an immediate one.
  bool unload = false;
  int status = exit_status::kInOrder;
};

}  // namespace orvenza
