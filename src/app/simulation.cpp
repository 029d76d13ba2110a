#include "app/simulation.h"

#include <filesystem>
#include <iterator>

namespace orvenza {

Simulation::Simulation(const Clock& clock, Scheduler& scheduler, const FaultScript& script,
                       const std::string& folder, std::function<void(const std::string&)> show)
    : show_(std::move(show)), register_(clock, paper_, script.profile), link_(register_, scheduler, script) {
  if (!script.paperFile.empty()) {
    paperFile_.open(std::filesystem::path(folder) / script.paperFile, std::ios::binary | std::ios::app);
  }
  paper_.SetSink([this](const std::string& line) {
    show_(line);
    if (paperFile_.is_open()) paperFile_ << line << "\n" << std::flush;
  });
}

FaultScript ReadFaultScript(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw ScriptError(path, 1, "a file that can be read");
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  return ParseFaultScript(path, text);
}

}  // namespace orvenza
