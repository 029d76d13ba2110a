#include "app/command_line.h"

#include "core/arguments.h"

namespace orvenza {

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
  const Arguments arguments = ReadArguments(words, {{"--folder", "DIR", {}},
                                                    {"--simulate", "[SCRIPT]", {}},
                                                    {"--version", {}, {}},
                                                    {"--help", {}, {}},
                                                    {"-h", {}, {}}});
  CommandLine line;
  line.help = arguments.Has("--help") || arguments.Has("-h");
  line.version = arguments.Has("--version");
  line.folder = arguments.Value("--folder").value_or("");
  line.simulate = arguments.Has("--simulate");
  const std::string script = arguments.Value("--simulate").value_or("");
  if (!script.empty()) line.script = script;
  line.error = arguments.error;
  if (line.error.empty() && !arguments.words.empty()) {
    line.error = "unexpected word '" + arguments.words.front() + "'";
  }
  return line;
}

std::string Usage(const std::string& menu) {
  return "Usage: Orvenza [--folder DIR] [--simulate [SCRIPT]]\n"
         "\n"
         "Prints the ticket files of a point-of-sale program on a fiscal cash register.\n"
         "\n"
         "  --folder DIR         program folder: settings, logs, default ticket folders\n"
         "                       (default: the folder of the executable)\n"
         "  --simulate [SCRIPT]  use a simulated register, with the faults of SCRIPT if given;\n"
         "                       what it prints is shown here\n"
         "  --version            show the version and exit\n"
         "  --help               show this page and exit\n"
         "\n" +
         menu +
         "\n"
         "To end the program use the menu, or let the host write QUIT into command.txt in the\n"
         "program folder.\n"
         "\n"
         "Exit codes:\n"
         "  0  ended as requested by the operator, the host or the system\n"
         "  2  the command line, the folder or the script cannot be used, or another failure\n"
         "  3  another Orvenza serves the folder\n"
         "  4  the settings cannot be read, or have an unknown version\n"
         "  5  a folder named in the settings cannot be created\n";
}

}  // namespace orvenza
