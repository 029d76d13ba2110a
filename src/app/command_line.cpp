#include "app/command_line.h"

namespace orvenza {

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
  CommandLine line;
  for (std::size_t i = 0; i < words.size() && line.error.empty(); ++i) {
    const std::string& word = words[i];
    const bool hasValue = i + 1 < words.size() && !words[i + 1].starts_with("--");
    if (word == "--help" || word == "-h") {
      line.help = true;
    } else if (word == "--version") {
      line.version = true;
    } else if (word == "--simulate") {
      line.simulate = true;
      if (hasValue) line.script = words[++i];
    } else if (word == "--folder" && hasValue && !words[i + 1].empty()) {
      line.folder = words[++i];
    } else if (word == "--folder") {
      line.error = "--folder needs the name of a folder";
    } else {
      line.error = "unknown option '" + word + "'";
    }
  }
  return line;
}

std::string Usage(const std::string& menu) {
  return "Usage: Orvenza [--folder DIR] [--simulate [SCRIPT]]\n"
         "\n"
         "Prints the ticket files of a point-of-sale program on a fiscal cash register.\n"
         "\n"
         "  --folder DIR         program folder: settings, logs, default ticket folders\n"
         "                       (default: where the executable lies)\n"
         "  --simulate [SCRIPT]  use a simulated register, with the faults of SCRIPT if given;\n"
         "                       what it prints is shown here\n"
         "  --version            show the version and end\n"
         "  --help               show this page and end\n"
         "\n" +
         menu +
         "\n"
         "It ends through the menu, or when the host writes QUIT into command.txt in the program\n"
         "folder.\n"
         "\n"
         "Exit status:\n"
         "  0  ended, also after a message that says why it cannot start\n"
         "  2  the command line, the folder or the script cannot be used, or a failure\n";
}

}  // namespace orvenza
