#include "app/simulation.h"

#include <utility>

#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Whether a path is absolute on any system.
bool IsAbsolute(const std::string& path) {
  return path.find_first_of("/\\") == 0 || (path.size() > 1 && path[1] == ':');
}

}  // namespace

Simulation::Simulation(Files& files, const Clock& clock, Scheduler& scheduler, const FaultScript& script,
                       const std::string& folder, std::function<void(const std::string&)> show)
    : register_(clock, paper_, script.profile), link_(register_, scheduler, script) {
  const bool below = !script.paperFile.empty() && !IsAbsolute(script.paperFile);
  const std::string copy = below ? folder + "\\" + script.paperFile : script.paperFile;
  paper_.SetSink([&files, copy, name = script.paperFile, show = std::move(show),
                  lossTold = false](const std::string& line) mutable {
    show(line);
    if (copy.empty()) return;
    try {
      files.Append(copy, line + "\n");
    } catch (const SystemError& failure) {
      // The paper line itself has been shown.
      if (!lossTold) show("(" + name + ": " + std::string(StandardDescription(failure.Number())) + ")");
      lossTold = true;
    }
  });
}

FaultScript ReadFaultScript(const FileReader& files, const std::string& path) {
  std::string text;
  try {
    text = ReadWhole(files, path);
  } catch (const SystemError&) {
    throw ScriptError(path, 1, "a file that can be read");
  }
  return ParseFaultScript(path, text);
}

}  // namespace orvenza
