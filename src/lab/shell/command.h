#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "core/arguments.h"
#include "lab/shell/console.h"
#include "lab/shell/machine.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace orvenza {

/// The machine as the lab sees it. All of it outlives the lab.
struct LabSurroundings {
  Files& files;
  Folders& folders;
  Clock& clock;
  Machine& machine;
  Console& console;
  std::string homeFolder;  ///< Where the executable lies, without a "\" at its end.
};

/// A command of the lab. Each lives in a <name>_command file and is one row of Commands().
struct Command {
  std::string name;
  std::string summary;          ///< One line, for the list of commands.
  std::string synopsis;         ///< What follows the name: "FILE... [--json]".
  std::string description;      ///< Paragraphs of the help page, lines of at most 80 characters.
  std::vector<Option> options;  ///< Without --help, which every command has.
  std::string statuses;         ///< The exit statuses, one a line.
  std::string examples;         ///< Command lines, one a line.
  /// Carries it out and returns the exit status.
  int (*run)(const Arguments& arguments, LabSurroundings& surroundings);
};

/// Thrown by a command whose command line makes no sense, with the reason.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Exit status of a command line that cannot be understood, and of every failure.
inline constexpr int kFailed = 2;

/// The help page of a command.
std::string HelpPage(const Command& command);

/// Writes "orvenza-lab: `reason`" and where to read more to the error output; returns kFailed.
int RefuseUsage(Console& console, const std::string& command, const std::string& reason);

/// The program: carries out the command that `words`, those behind the program's name, ask for and returns
/// the exit status.
int RunLab(const std::vector<std::string>& words, const std::vector<Command>& commands,
           LabSurroundings& surroundings);

}  // namespace orvenza
