#include "lab/shell/command.h"

namespace orvenza {

int RefuseUsage(Console& console, const std::string& command, const std::string& reason) {
  const std::string called = command.empty() ? kLabName : std::string(kLabName) + " " + command;
  console.out.flush();
  console.err << called << ": " << reason << "\nSee '" << called << " --help'.\n";
  return kFailed;
}

}  // namespace orvenza
