#include "lab/shell/help_page.h"

#include <sstream>

namespace orvenza {
namespace {

constexpr std::size_t kOptionColumn = 24;

/// `text` with every line indented.
std::string Indented(const std::string& text) {
  std::string indented;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) indented += line.empty() ? "\n" : "  " + line + "\n";
  return indented;
}

/// `name` in its column, then `text` with its further lines aligned below the first.
std::string Row(const std::string& name, const std::string& text) {
  std::string row = "  " + name;
  row += row.size() + 2 > kOptionColumn ? "\n" + std::string(kOptionColumn, ' ')
                                        : std::string(kOptionColumn - row.size(), ' ');
  for (const char c : text) {
    row += c;
    if (c == '\n') row.append(kOptionColumn, ' ');
  }
  return row + "\n";
}

std::string OptionRows(const std::vector<Option>& options) {
  std::string rows;
  for (const Option& option : options) {
    rows += Row(option.value.empty() ? option.name : option.name + " " + option.value, option.help);
  }
  return rows + Row("--help", "show this page and exit");
}

}  // namespace

std::string HelpPage(const Command& command) {
  const std::string called = std::string(kLabName) + " " + command.name;
  return called + ": " + command.summary + "\n\nUsage:\n" + Indented(called + " " + command.synopsis) + "\n" +
         command.description + "\n\nOptions:\n" + OptionRows(command.options) + "\nExit codes:\n" +
         Indented(command.statuses) + "\nExamples:\n" + Indented(command.examples);
}

std::string HelpPage(const std::vector<Command>& commands) {
  std::string page =
      "Usage: orvenza-lab COMMAND [OPTION...]\n"
      "\n"
      "Tools for integrators of Orvenza, besides the connector itself.\n"
      "\n"
      "Commands:\n";
  for (const Command& command : commands) page += Row(command.name, command.summary);
  return page + "\n" + Row("help COMMAND", "describe a command; the same as COMMAND --help") +
         Row("completion SHELL",
             "write the script that completes command lines in SHELL,\nbash or powershell") +
         Row("man [COMMAND]",
             "write the man page of the lab, a command or Orvenza; to read it:\norvenza-lab man check | man "
             "-l -") +
         Row("--version", "show the version and exit") + Row("--help", "show this page and exit");
}

}  // namespace orvenza
