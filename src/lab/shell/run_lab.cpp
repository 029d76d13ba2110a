#include "lab/shell/run_lab.h"

#include <algorithm>
#include <exception>
#include <stdexcept>

#include "core/text.h"
#include "lab/shell/completion.h"
#include "lab/shell/help_page.h"
#include "lab/shell/man_page.h"

namespace orvenza {
namespace {

const Command* Find(const std::vector<Command>& commands, const std::string& name) {
  const auto found =
      std::find_if(commands.begin(), commands.end(), [&](const Command& c) { return c.name == name; });
  return found == commands.end() ? nullptr : &*found;
}

int RefuseCommand(Console& console, const std::string& name, const std::vector<Command>& commands) {
  std::vector<std::string> names{"help", "completion", "man"};
  for (const Command& command : commands) names.push_back(command.name);
  return RefuseUsage(console, {},
                     name.starts_with('-')
                         ? "unknown option '" + name + "'" + Hint(name, {"--help", "--version"})
                         : "unknown command '" + name + "'" + Hint(name, names));
}

int ShowHelp(const std::vector<std::string>& words, const std::vector<Command>& commands, Console& console) {
  if (words.empty()) {
    console.out << HelpPage(commands);
    return 0;
  }
  const Command* command = Find(commands, words.front());
  const bool ofHelp = words.front() == "help";
  if (command == nullptr && !ofHelp) return RefuseCommand(console, words.front(), commands);
  if (words.size() > 1) return RefuseUsage(console, {}, "unexpected word '" + words[1] + "'");
  console.out << (ofHelp ? HelpPage(commands) : HelpPage(*command));
  return 0;
}

int WriteCompletion(const std::vector<std::string>& words, const std::vector<Command>& commands,
                    Console& console) {
  if (words.size() != 1 || (words.front() != "bash" && words.front() != "powershell")) {
    return RefuseUsage(console, {}, "completion for which shell? bash or powershell");
  }
  console.out << (words.front() == "bash" ? BashCompletion(commands) : PowerShellCompletion(commands));
  return 0;
}

int WriteManPage(const std::vector<std::string>& words, const std::vector<Command>& commands,
                 Console& console) {
  if (words.size() > 1) return RefuseUsage(console, {}, "unexpected word '" + words[1] + "'");
  if (words.empty()) {
    console.out << ManPage(commands);
    return 0;
  }
  const Command* command = Find(commands, words.front());
  const bool ofConnector = words.front() == "Orvenza";
  if (command == nullptr && !ofConnector) return RefuseCommand(console, words.front(), commands);
  console.out << (ofConnector ? ManPageOfConnector() : ManPage(*command));
  return 0;
}

int RunCommand(const Command& command, const std::vector<std::string>& words, LabSurroundings& surroundings) {
  std::vector<Option> options = command.options;
  options.push_back({"--help", {}, {}});
  options.push_back({"-h", {}, {}});
  const Arguments arguments = ReadArguments(words, options);
  Console& console = surroundings.console;
  if (arguments.Has("--help") || arguments.Has("-h")) {
    console.out << HelpPage(command);
    return 0;
  }
  if (!arguments.error.empty()) return RefuseUsage(console, command.name, arguments.error);
  try {
    return command.run(arguments, surroundings);
  } catch (const UsageError& refused) {
    return RefuseUsage(console, command.name, refused.what());
  } catch (const std::exception& failure) {
    console.out.flush();
    console.err << WithPrefix(std::string(kLabName) + " " + command.name + ": ", failure.what()) << "\n";
    return kFailed;
  }
}

int Run(const std::vector<std::string>& words, const std::vector<Command>& commands,
        LabSurroundings& surroundings) {
  Console& console = surroundings.console;
  const std::string& name = words.front();
  const std::vector<std::string> rest(words.begin() + 1, words.end());
  if (name == "--help" || name == "-h" || name == "help") return ShowHelp(rest, commands, console);
  if (name == "--version") {
    console.out << kLabName << " " << surroundings.version << "\n";
    return 0;
  }
  if (name == "completion") return WriteCompletion(rest, commands, console);
  if (name == "man") return WriteManPage(rest, commands, console);
  const Command* command = Find(commands, name);
  return command == nullptr ? RefuseCommand(console, name, commands)
                            : RunCommand(*command, rest, surroundings);
}

}  // namespace

int RunLab(const std::vector<std::string>& words, const std::vector<Command>& commands,
           LabSurroundings& surroundings) {
  Console& console = surroundings.console;
  if (words.empty()) {
    console.err << HelpPage(commands);
    return kFailed;
  }
  const int status = Run(words, commands, surroundings);
  if (console.out.flush()) return status;
  console.err << kLabName << ": the standard output cannot be written\n";
  return kFailed;
}

}  // namespace orvenza
