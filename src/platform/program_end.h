#pragma once

namespace orvenza {

/// How the program tells the system that it has ended.
namespace exit_status {
inline constexpr int kInOrder = 0;        ///< As asked for: by the operator, the host, the system.
inline constexpr int kFailed = 2;         ///< It could not even begin: command line, folder, script.
inline constexpr int kServedAlready = 3;  ///< Another instance serves the folder.
inline constexpr int kSettings = 4;       ///< The settings cannot be used.
inline constexpr int kFolderNotMade = 5;  ///< A folder that the settings name cannot be made.
}  // namespace exit_status

/// Thrown to end the program. Not a std::exception on purpose: the traps that log a failure and carry on
/// must let it pass.
struct ProgramEnd {
  /// True for an orderly end (the main form is unloaded and "End" is logged), false for an end on the spot.
  bool unload = false;
  int status = exit_status::kInOrder;
};

}  // namespace orvenza
