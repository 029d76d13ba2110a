#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "core/arguments.h"
#include "core/version.h"
#include "lab/shell/console.h"
#include "lab/shell/machine.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace orvenza {

/// The lab's environment. Everything here outlives the lab.
struct LabSurroundings {
  Files& files;
  Folders& folders;
  Clock& clock;
  EventPump& pump;
  Machine& machine;
  Console& console;
  std::string homeFolder;              ///< The executable's folder, without a trailing "\".
  std::string version = kVersionText;  ///< What --version says.
};

/// A command of the lab. Each is in a <name>_command file and has a row in Commands().
struct Command {
  std::string name{};
  std::string summary{};          ///< One line, for the list of commands.
  std::string synopsis{};         ///< The arguments after the name: "FILE... [--json]".
  std::string description{};      ///< Paragraphs of the help page, in lines of at most 80 characters.
  std::vector<Option> options{};  ///< Except --help, which every command has.
  std::string statuses{};         ///< The exit codes, one per line.
  std::string examples{};         ///< Command lines, one per line.
  /// Runs the command and returns the exit code.
  int (*run)(const Arguments& arguments, LabSurroundings& surroundings) = nullptr;
};

/// Thrown for an invalid command line, with the reason.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The program's name.
inline constexpr const char* kLabName = "orvenza-lab";

/// Exit code for an invalid command line and for every failure.
inline constexpr int kFailed = 2;

/// Writes "orvenza-lab: `reason`" and a pointer to the help to the error output; returns kFailed.
[[nodiscard]] int RefuseUsage(Console& console, const std::string& command, const std::string& reason);

}  // namespace orvenza
